#include "app/startup.h"
#include "stationfixture.h"
#include "stores/settingsstore.h"
#include "stores/sqlitedb.h"
#include "stores/stationfolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace orvane;

class StationFolder : public testkit::StationTest {};

TEST_F(StationFolder, HomeVariableNamesTheFolder) {
    ::setenv("ORVANE_HOME", "/tmp/some-station", 1);
    EXPECT_EQ(stores::stationfolder(), "/tmp/some-station");
    ::unsetenv("ORVANE_HOME");
    ::setenv("HOME", "/home/analyst", 1);
    EXPECT_EQ(stores::stationfolder(), "/home/analyst/.local/share/orvane");
}

TEST_F(StationFolder, FirstStartMakesTheThreeDatabases) {
    start();
    for (const char* name : {"gpsx.db", "color.db", "yqhbz.db"})
        EXPECT_TRUE(fs::exists(fs::path(home) / name)) << name;
    EXPECT_FALSE(fs::exists(fs::path(home) / "gpsx.db.partial"));
}

TEST_F(StationFolder, TablesHaveTheirColumnsInOrder) {
    start();
    auto columns = [&](Db& db, const std::string& table) {
        std::string out;
        for (auto& row : db.rows("select name from pragma_table_info(?) order by cid", {table}))
            out += (out.empty() ? "" : ",") + row[0].text;
        return out;
    };
    EXPECT_EQ(columns(*st.gpsxdb, "gzryb"), "bh,xm,bz,gwd");
    EXPECT_EQ(columns(*st.gpsxdb, "zyqjb"), "bh,mc");
    EXPECT_EQ(columns(*st.gpsxdb, "bz"), "bh,mc");
    EXPECT_EQ(columns(*st.gpsxdb, "biaoji"), "bjid,bjwb");
    EXPECT_EQ(columns(*st.gpsxdb, "biaojikc"), "xh,bj01,bj02");
    EXPECT_EQ(columns(*st.gpsxdb, "pinkong"), "jqbh,apk,bpk,cpk,dpk,epk,fpk,gpk,hpk");
    EXPECT_EQ(columns(*st.gpsxdb, "zysyb"), "jqbh,kjrq,abjs,zjr1bh,zyqj");
    EXPECT_EQ(columns(*st.yqhbzdb, "yqhbz"), "yqh,bz");
    EXPECT_EQ(columns(*st.colordb, "color"), "weizhi,shuzhi,shuzhibf,apy,bpy,cpy,dpy,epy,fpy,gpy");
}

TEST_F(StationFolder, EverySettingRowIsSeeded) {
    start();
    for (const char* key : colorkeys)
        EXPECT_EQ(st.colordb->scalar("select count(*) from color where weizhi=?", {key}).number(), 1) << key;
    for (const char* key : {"bofsd", "diandx", "zuhfj", "shoudbjz", "guolv"})
        EXPECT_EQ(st.colordb->scalar("select count(*) from color where weizhi=?", {key}).number(), 1) << key;
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='bxianbackcolor'").integer, 0);
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='biaochicolor'").integer,
              rgb(230, 230, 230));
}

TEST_F(StationFolder, MarkTablesAndMasterDataAreSeeded) {
    start();
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from biaoji").integer, 5);
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from biaojikc where xh between 1 and 37").integer, 37);
    EXPECT_GT(st.gpsxdb->scalar("select count(*) from gzryb").integer, 0);
    EXPECT_GT(st.gpsxdb->scalar("select count(*) from zyqjb").integer, 0);
    EXPECT_GT(st.gpsxdb->scalar("select count(*) from bz").integer, 0);
    EXPECT_GT(st.yqhbzdb->scalar("select count(*) from yqhbz").integer, 0);
}

TEST_F(StationFolder, FilterLevelsStartAt256AndChannelEAtOne) {
    start();
    auto row = st.colordb->rows(
        "select shuzhi,shuzhibf,apy,bpy,cpy,dpy,epy,fpy,gpy from color where weizhi='guolv'");
    ASSERT_EQ(row.size(), 1u);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(row[0][i].integer, i == 6 ? 1 : 256) << i;
}

TEST_F(StationFolder, AnExistingDatabaseIsKept) {
    start();
    st.gpsxdb->exec("insert into bz values ('77', '测试')");
    Station again;
    again.ui = &ui;
    again.clock = &clock;
    entry(again, home);
    EXPECT_EQ(again.gpsxdb->scalar("select mc from bz where bh='77'").text, "测试");
}

TEST_F(StationFolder, UnwritableFolderIsNamedInTheMessage) {
    if (::geteuid() == 0) {
        // root writes anywhere: a path under a regular file cannot be made by anyone.
        std::string blocker = writefile("blocker", "x");
        try {
            entry(st, blocker + "/station");
            FAIL() << "the start went on";
        } catch (const std::runtime_error& e) {
            EXPECT_NE(std::string(e.what()).find(blocker + "/station"), std::string::npos) << e.what();
        }
        return;
    }
    fs::create_directories(home);
    fs::permissions(home, fs::perms::owner_read | fs::perms::owner_exec);
    try {
        start();
        FAIL() << "the start went on";
    } catch (const stores::StationFolderError& e) {
        EXPECT_NE(std::string(e.what()).find(home), std::string::npos) << e.what();
    }
}

TEST_F(StationFolder, AFileThatIsNotADatabaseIsNamed) {
    fs::create_directories(home);
    std::ofstream(fs::path(home) / "color.db") << std::string(4096, 'z');
    try {
        start();
        FAIL() << "the start went on";
    } catch (const stores::DbError& e) {
        EXPECT_NE(std::string(e.what()).find(home + "/color.db"), std::string::npos) << e.what();
    }
    EXPECT_EQ(st.colordb, nullptr);
}

TEST_F(StationFolder, AMissingSettingRowIsNamed) {
    start();
    st.colordb->exec("delete from color where weizhi='shoudbjz'");
    try {
        loadsettings(st);
        FAIL() << "the load went on";
    } catch (const SettingsError& e) {
        EXPECT_NE(std::string(e.what()).find("shoudbjz"), std::string::npos) << e.what();
    }
}

TEST_F(StationFolder, ASettingsTableWithoutTheFilterRowStopsTheStart) {
    start();
    st.colordb->exec("delete from color where weizhi='guolv'");
    try {
        loadsettings(st);
        FAIL() << "the load went on";
    } catch (const SettingsError& e) {
        EXPECT_NE(std::string(e.what()).find("缺少行 guolv"), std::string::npos) << e.what();
    }
}

TEST_F(StationFolder, AMissingSettingLeavesTheSettingsInForce) {
    start();
    const auto before = st.settings.viewspan;
    st.colordb->exec("update color set apy=600 where weizhi='shoudbjz'");
    st.colordb->exec("delete from color where weizhi='guolv'");
    st.colordb->exec("delete from color where weizhi='icolor'");
    EXPECT_THROW(loadsettings(st), SettingsError);
    EXPECT_EQ(st.settings.viewspan, before);
}
