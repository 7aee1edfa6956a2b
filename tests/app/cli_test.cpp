// The headless front, run as a user runs it.
#include "ktrbuilder.h"
#include "stationfixture.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

struct CliRun {
    int status = -1;
    std::string out;
};

class Cli : public orvane::testkit::StationTest {
  protected:
    CliRun cli(const std::string& arguments) {
        std::string command =
            "ORVANE_HOME='" + home + "' " ORVANE_CLI " " + arguments + " 2>" + temp.file("err");
        CliRun r;
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> buf{};
        std::size_t n;
        while ((n = fread(buf.data(), 1, buf.size(), pipe)) > 0) r.out.append(buf.data(), n);
        int status = pclose(pipe);
        r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return r;
    }
};

TEST_F(Cli, SettingsPrintsTheRowsAsStoredAfterTheStart) {
    CliRun r = cli("settings");
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("\"diandx\":{\"shuzhi\":2,\"shuzhibf\":0,\"apy\":25,"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\"shoudbjz\":{\"shuzhi\":500,\"shuzhibf\":0,\"apy\":0,"), std::string::npos);
    EXPECT_NE(r.out.find("\"viewspan\":1200"), std::string::npos);
    EXPECT_NE(r.out.find("\"biaojiname\":[\"焊缝\",\"接头\",\"道岔\",\"可疑点\",\"其他\"]"),
              std::string::npos);
    EXPECT_NE(r.out.find("\"biaojikcpair\":[[\"\",\"\"],[\"桥\",\"桥梁\"]"), std::string::npos);
}

TEST_F(Cli, SetWritesTheSettingBeforePrinting) {
    CliRun r = cli("settings --set shoudbjz.apy=600 --set Option6=1");
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("\"viewspan\":600"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\"markplace\":0"), std::string::npos);
    CliRun again = cli("settings");
    EXPECT_NE(again.out.find("\"viewspan\":600"), std::string::npos); // written, so kept
}

TEST_F(Cli, OutputGoesToTheFileGiven) {
    CliRun r = cli("settings -o " + temp.file("s.json"));
    ASSERT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.empty());
    EXPECT_GT(std::filesystem::file_size(temp.file("s.json")), 100u);
}

TEST_F(Cli, BadArgumentsExitWithTwo) {
    EXPECT_EQ(cli("").status, 2);
    EXPECT_EQ(cli("nosuchcommand").status, 2);
    EXPECT_EQ(cli("settings --seed abc").status, 2);
    EXPECT_EQ(cli("settings --set Option99=1").status, 2);
    EXPECT_EQ(cli("settings --set novalue").status, 2);
}

TEST_F(Cli, AStationThatCannotStartExitsWithOne) {
    std::filesystem::create_directories(home);
    writefile("home/color.db", std::string(2048, 'q'));
    CliRun r = cli("settings");
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.empty());
}

} // namespace

namespace {

class CliDump : public Cli {};

TEST_F(CliDump, DumpPrintsTheWalkedCountersAndLists) {
    using orvane::testkit::KtrBuilder;
    using orvane::testkit::Sample;
    KtrBuilder b;
    b.param().samples(
        {Sample{.km = 10, .metres = 0, .step = 0}, Sample{.km = 10, .metres = 100, .step = 100}});
    b.detection({{10, 1, 50}, {20, 0xFF, 0x0A}});
    std::string path = writefile("run.ktr", b.bytes());
    CliRun r = cli("dump " + path + " --cells 810:811 --mileage 850:850");
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("\"messages\":[]"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\"samplecount\":2"), std::string::npos);
    EXPECT_NE(r.out.find("\"lastposition\":1300"), std::string::npos);
    EXPECT_NE(r.out.find("\"samplepos\":[0,900,1300]"), std::string::npos);
    EXPECT_NE(r.out.find("\"marktext\":[\"0\"]"), std::string::npos);
    EXPECT_NE(r.out.find("\"cells\":[[810,0,2,50]]"), std::string::npos);
    EXPECT_NE(r.out.find("\"mileage\":[[850,10.05]]"), std::string::npos);
}

TEST_F(CliDump, DumpOfAnEmptyRecordingKeepsEveryKey) {
    std::string path = writefile("empty.ktr", "");
    CliRun r = cli("dump " + path);
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("\"messages\":[\"没有数据！\"]"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\"samplecount\":0"), std::string::npos);
    EXPECT_NE(r.out.find("\"channelkind\":"), std::string::npos);
}

TEST_F(CliDump, DumpOfAWrongExtensionFails) {
    EXPECT_EQ(cli("dump " + writefile("x.txt", "")).status, 1);
    EXPECT_EQ(cli("dump").status, 2);
    EXPECT_EQ(cli("dump a.ktr --cells 5").status, 2);
}

} // namespace
