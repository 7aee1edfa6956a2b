#include "app/startup.h"
#include "station/controls.h"
#include "stationfixture.h"
#include "stores/settingsstore.h"

#include <gtest/gtest.h>

using namespace orvane;

class SettingsStore : public testkit::StationTest {
  protected:
    // Every field of every row, to see that a writer touched exactly one.
    std::vector<DbRow> snapshot() {
        return st.colordb->rows(
            "select weizhi,shuzhi,shuzhibf,apy,bpy,cpy,dpy,epy,fpy,gpy from color order by weizhi");
    }
    // The cells that differ between two snapshots, as "key.field".
    std::vector<std::string> changed(const std::vector<DbRow>& a, const std::vector<DbRow>& b) {
        std::vector<std::string> out;
        for (std::size_t r = 0; r < a.size(); ++r)
            for (std::size_t c = 1; c < a[r].size(); ++c)
                if (a[r][c].astext() != b[r][c].astext())
                    out.push_back(a[r][0].text + "." + colorfields[c - 1]);
        return out;
    }
    std::string field(const std::string& key, const std::string& f) {
        return st.colordb->scalar("select " + f + " from color where weizhi=?", {key}).astext();
    }
};

TEST_F(SettingsStore, LossLengthZeroBecomes25InTheTableAfterOneStart) {
    ASSERT_NO_FATAL_FAILURE(start());
    EXPECT_EQ(st.settings.losswavelimit, 25);
    EXPECT_EQ(field("diandx", "apy"), "25");
}

TEST_F(SettingsStore, ViewSpanZeroStaysInTheTableAndWorksAs1200) {
    start();
    EXPECT_EQ(field("shoudbjz", "apy"), "0");
    EXPECT_EQ(st.settings.viewspan, 1200);
}

TEST_F(SettingsStore, EnglishForcesMarkPlaceAndReversalsInMemoryOnly) {
    start();
    st.colordb->exec("update color set bpy=0, dpy=0 where weizhi='shoudbjz'");
    Station english;
    english.ui = &ui;
    english.clock = &clock;
    entry(english, home, "english");
    EXPECT_EQ(english.settings.markplace, 1);
    EXPECT_EQ(english.settings.reverseshow, 1);
    EXPECT_EQ(field("shoudbjz", "bpy"), "0");
    EXPECT_EQ(field("shoudbjz", "dpy"), "0");
    loadsettings(st); // back in Chinese the old values are seen
    EXPECT_EQ(st.settings.markplace, 0);
    EXPECT_EQ(st.settings.reverseshow, 0);
}

TEST_F(SettingsStore, LoadReadsEveryValueOfTheTable) {
    start();
    st.colordb->exec("update color set shuzhi=7 where weizhi='bofsd'");
    st.colordb->exec("update color set shuzhi=3, apy=40 where weizhi='diandx'");
    st.colordb->exec("update color set shuzhi=2 where weizhi='zuhfj'");
    st.colordb->exec("update color set shuzhi=300, apy=600, bpy=0, cpy=1, dpy=1, epy=1, fpy=0, gpy=1 where "
                     "weizhi='shoudbjz'");
    st.colordb->exec("update color set shuzhi=123456 where weizhi='ecolor'");
    loadsettings(st);
    const Settings& s = st.settings;
    EXPECT_EQ(s.bofsd, 7);
    EXPECT_EQ(s.diandx, 3);
    EXPECT_EQ(s.losswavelimit, 40);
    EXPECT_EQ(s.zuhfj, 2);
    EXPECT_EQ(st.displaymode, "fenjie");
    EXPECT_EQ(s.manualstep, 300);
    EXPECT_EQ(s.viewspan, 600);
    EXPECT_EQ(s.markplace, 0);
    EXPECT_EQ(s.latewaveshown, 1);
    EXPECT_EQ(s.reverseshow, 1);
    EXPECT_EQ(s.vshape, 1);
    EXPECT_EQ(s.wholefile, 0);
    EXPECT_EQ(s.integralshown, 1);
    EXPECT_EQ(s.channelcolor[4], 123456u);
    EXPECT_EQ(s.color("ecolor"), 123456u);
}

TEST_F(SettingsStore, LayoutThreeIsCombinedWithCentring) {
    start();
    st.colordb->exec("update color set shuzhi=3 where weizhi='zuhfj'");
    loadsettings(st);
    EXPECT_EQ(st.displaymode, "zhjz");
}

TEST_F(SettingsStore, MarkNamesComeFromTheMarkTables) {
    start();
    EXPECT_EQ(st.settings.biaojiname[0], "焊缝");
    EXPECT_EQ(st.settings.biaojiname[4], "其他");
    EXPECT_EQ(st.settings.biaojikcpair[0][0], "");
    EXPECT_EQ(st.settings.biaojikcpair[0][1], "");
    EXPECT_EQ(st.settings.biaojikcpair[1][0], "桥");
    EXPECT_EQ(st.settings.biaojikcpair[1][1], "桥梁");
    EXPECT_EQ(st.settings.biaojikcpair[5][1], "公里标");
    EXPECT_EQ(st.settings.biaojikcpair[37][1], "其他");
}

TEST_F(SettingsStore, EachOptionWritesExactlyItsRowAndField) {
    start();
    struct Case {
        const char* control;
        const char* key;
        const char* field;
        const char* value;
    } cases[] = {
        {"Option3", "zuhfj", "shuzhi", "2"},  {"Option5", "zuhfj", "shuzhi", "3"},
        {"Option6", "shoudbjz", "bpy", "0"},  {"Option8", "shoudbjz", "apy", "600"},
        {"Option15", "shoudbjz", "cpy", "1"}, {"Option2", "shoudbjz", "dpy", "1"},
        {"Option19", "shoudbjz", "epy", "1"}, {"Option16", "shoudbjz", "fpy", "0"},
        {"Option21", "shoudbjz", "gpy", "1"},
    };
    for (const Case& c : cases) {
        auto before = snapshot();
        setcontrol(st, c.control, "1");
        auto after = snapshot();
        EXPECT_EQ(changed(before, after), std::vector<std::string>{std::string(c.key) + "." + c.field})
            << c.control;
        EXPECT_EQ(field(c.key, c.field), c.value) << c.control;
    }
}

TEST_F(SettingsStore, OptionsChangeTheSettingsInForce) {
    start();
    setcontrol(st, "Option8", "1");
    EXPECT_EQ(st.settings.viewspan, 600);
    EXPECT_EQ(st.settings.manualstep, 400); // the expanded view caps the hand step
    setcontrol(st, "Option9", "1");
    EXPECT_EQ(st.settings.viewspan, 1200);
    setcontrol(st, "Option3", "1");
    EXPECT_EQ(st.displaymode, "fenjie");
    setcontrol(st, "Option6", "1");
    EXPECT_EQ(st.settings.markplace, 0);
    setcontrol(st, "Option7", "1");
    EXPECT_EQ(st.settings.markplace, 1);
}

TEST_F(SettingsStore, AnOptionAlreadyOnStaysAsItIs) {
    start();
    EXPECT_EQ(reach(st, "Option4").value(st), 1);
    auto before = snapshot();
    setcontrol(st, "Option4", "1");
    setcontrol(st, "Option3", "0");
    EXPECT_TRUE(changed(before, snapshot()).empty());
}

TEST_F(SettingsStore, EachScrollBarWritesItsRowAndField) {
    start();
    struct Case {
        const char* control;
        const char* key;
        const char* field;
    } cases[] = {{"HScroll8", "bofsd", "shuzhi"},
                 {"HScroll6", "diandx", "shuzhi"},
                 {"HScroll7", "diandx", "shuzhi"},
                 {"HScroll10", "diandx", "apy"},
                 {"HScroll3", "shoudbjz", "shuzhi"}};
    int value = 4;
    for (const Case& c : cases) {
        auto before = snapshot();
        setcontrol(st, c.control, std::to_string(value));
        EXPECT_EQ(changed(before, snapshot()), std::vector<std::string>{std::string(c.key) + "." + c.field})
            << c.control;
        EXPECT_EQ(field(c.key, c.field), std::to_string(value)) << c.control;
        ++value;
    }
    EXPECT_EQ(st.settings.bofsd, 4);
    EXPECT_EQ(st.settings.diandx, 6);
    EXPECT_EQ(st.settings.losswavelimit, 7);
    EXPECT_EQ(st.settings.manualstep, 8);
}

TEST_F(SettingsStore, BlackPresetWritesNineChannelColoursAndTheTwoRows) {
    start();
    st.colordb->exec("update color set shuzhi=1");
    colorpreset(st, 40);
    EXPECT_EQ(field("bxianbackcolor", "shuzhi"), "0");
    EXPECT_EQ(field("biaochicolor", "shuzhi"), std::to_string(rgb(230, 230, 230)));
    const std::uint32_t expected[9] = {rgb(192, 0, 255), rgb(0, 0, 255),   rgb(255, 255, 0),
                                       rgb(0, 255, 255), rgb(255, 192, 0), rgb(255, 64, 255),
                                       rgb(0, 192, 0),   rgb(255, 0, 0),   rgb(255, 255, 255)};
    for (int c = 0; c < 9; ++c) {
        EXPECT_EQ(field(colorkeys[8 + c], "shuzhi"), std::to_string(expected[c])) << colorkeys[8 + c];
        EXPECT_EQ(st.settings.channelcolor[c], expected[c]);
    }
    EXPECT_EQ(field("formbackcolor", "shuzhi"), "1"); // not a row of the preset
}

TEST_F(SettingsStore, LightYellowPresetWritesNineChannelColoursAndTheTwoRows) {
    start();
    colorpreset(st, 41);
    EXPECT_EQ(field("bxianbackcolor", "shuzhi"), std::to_string(rgb(255, 255, 192)));
    EXPECT_EQ(field("biaochicolor", "shuzhi"), "0");
    const std::uint32_t expected[9] = {rgb(192, 0, 255), rgb(0, 255, 0), rgb(192, 64, 0),
                                       rgb(0, 192, 255), rgb(0, 0, 0),   rgb(255, 64, 255),
                                       rgb(0, 192, 0),   rgb(0, 0, 255), rgb(255, 0, 0)};
    for (int c = 0; c < 9; ++c) EXPECT_EQ(field(colorkeys[8 + c], "shuzhi"), std::to_string(expected[c]));
    EXPECT_EQ(st.settings.color("bxianbackcolor"), rgb(255, 255, 192));
}

TEST_F(SettingsStore, SetAsDefaultStoresTheNineFilterTexts) {
    start();
    const char* boxes[9] = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde", "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
    for (int c = 0; c < 9; ++c) setcontrol(st, boxes[c], std::to_string(10 + c));
    savefilterdefaults(st);
    EXPECT_EQ(field("guolv", "apy"), "10");
    EXPECT_EQ(field("guolv", "gpy"), "16");
    EXPECT_EQ(field("guolv", "shuzhi"), "17");
    EXPECT_EQ(field("guolv", "shuzhibf"), "18");
}

TEST_F(SettingsStore, ASettingSetByNameTakesEffectAsAfterARestart) {
    start();
    setsetting(st, "shoudbjz.apy", "600");
    EXPECT_EQ(field("shoudbjz", "apy"), "600");
    EXPECT_EQ(st.settings.viewspan, 600);
    setsetting(st, "acolor.shuzhi", "255");
    EXPECT_EQ(st.settings.channelcolor[0], 255u);
}

TEST_F(SettingsStore, UnknownNamesAreRefused) {
    start();
    EXPECT_THROW(setcontrol(st, "Option99", "1"), ControlError);
    EXPECT_THROW(setsetting(st, "nosuchrow.apy", "1"), ControlError);
    EXPECT_THROW(setsetting(st, "shoudbjz.zpy", "1"), SettingsError);
    EXPECT_THROW(setsetting(st, "shoudbjz", "1"), ControlError);
}

TEST_F(SettingsStore, AWriterTakesAQuoteInItsValue) {
    start();
    writesetting(st, "guolv", "apy", "1'2");
    EXPECT_EQ(field("guolv", "apy"), "1'2");
}
