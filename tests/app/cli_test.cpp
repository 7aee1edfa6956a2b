// The headless front, run as a user runs it.
#include "clirun.h"
#include "generator.h"
#include "ktrbuilder.h"
#include "stationfixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

using orvane::testkit::CliRun;

class Cli : public orvane::testkit::StationTest {
  protected:
    CliRun cli(const std::string& arguments) {
        return orvane::testkit::runcli(home, temp.file("err"), arguments);
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

class CliDump : public Cli {
  protected:
    // The small synthetic recording of seed 2, written into the test's folder.
    std::string smallrecording(ktrgen::Recording& rec) {
        rec = ktrgen::generate(ktrgen::preset("small"), 2);
        const std::string path = temp.file("small.ktr");
        ktrgen::writefile(path, rec);
        return path;
    }
};

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
    // the echo of channel A, then the made bottom wave of channel I
    EXPECT_NE(r.out.find("\"cells\":[[810,0,2,50],[810,8,35"), std::string::npos) << r.out;
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

// A small complete recording: parameters, a job record, samples with GPS fixes, marks, a stop and a
// lost bottom echo, read back key by key.
TEST_F(CliDump, DumpOfACompleteRecordingKeyByKey) {
    using orvane::testkit::Job;
    using orvane::testkit::KtrBuilder;
    using orvane::testkit::Sample;
    KtrBuilder b;
    b.param().job(Job{.operatorno = "002", .hand = 'L'});
    std::vector<std::array<std::uint8_t, 11>> entries = {
        KtrBuilder::sampleentry(
            Sample{.hour = 8, .minute = 0, .km = 12, .metres = 0, .speed = 0x31, .step = 0}),
        KtrBuilder::sampleentry(Sample{.hour = 8, .minute = 1, .km = 12, .metres = 50, .step = 500}),
        KtrBuilder::gpsfirst("454612340126381234"), KtrBuilder::gpssecond("0A0B0C0D0E0F10111280"),
        KtrBuilder::sampleentry(Sample{.hour = 8, .minute = 31, .km = 12, .metres = 200, .step = 1000})};
    b.sampleentries(entries);
    b.detection({{100, 1, 50}, {200, 0xFF, 0x0B}, {300, 0xFF, 0x01}, {400, 0xFE, 40}});
    b.analyst(1500, "20261121", "140000", "150000");
    std::string path = writefile("full.ktr", b.bytes());
    CliRun r = cli("dump " + path + " --seed 7");
    ASSERT_EQ(r.status, 0);
    QJsonParseError error;
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << r.out;
    auto text = [&](const char* key) { return o[key].toString().toStdString(); };
    auto number = [&](const char* key) { return o[key].toInteger(-99999); };
    auto numbers = [&](const char* key) {
        std::vector<qint64> v;
        for (const auto& e : o[key].toArray()) v.push_back(e.toInteger());
        return v;
    };
    auto texts = [&](const QJsonArray& a) {
        std::vector<std::string> v;
        for (const auto& e : a) v.push_back(e.toString().toStdString());
        return v;
    };

    EXPECT_EQ(text("file"), path);
    EXPECT_TRUE(o["messages"].toArray().isEmpty());
    EXPECT_EQ(number("lastposition"), 2200);
    EXPECT_EQ(number("segmentbase"), 800);
    EXPECT_EQ(number("samplecount"), 3);
    EXPECT_EQ(number("gpscount"), 1);
    EXPECT_EQ(number("jobcount"), 1);
    EXPECT_EQ(number("paramcount"), 1);
    EXPECT_EQ(number("markcount"), 1);
    EXPECT_EQ(number("fecount"), 1);
    EXPECT_EQ(number("fdcount"), 0);
    EXPECT_EQ(number("stopcount"), 1);
    EXPECT_EQ(number("restartcount"), 0);
    EXPECT_EQ(number("analystcount"), 1);
    EXPECT_EQ(number("analysiscount"), 0);
    EXPECT_EQ(number("quartercount"), 1);
    EXPECT_EQ(number("quarterlast"), 1);
    EXPECT_EQ(number("foldvalue"), 0);
    EXPECT_EQ(number("pinkonghit"), 0);
    EXPECT_EQ(text("railcode"), "60");
    EXPECT_EQ(text("subwayflag"), "feibeijingditie");
    EXPECT_EQ(text("bureauflag"), "feibjj");
    EXPECT_EQ(text("trackside"), "左手");
    EXPECT_EQ(text("countdirection"), "+");
    EXPECT_EQ(text("resetmodetext"), "复位模式:0");
    EXPECT_EQ(text("machineno"), "12345");
    EXPECT_EQ(text("jobcaption"), "机号:12345");
    EXPECT_EQ(text("jobdatetext"), "26.11.22.09");
    EXPECT_EQ(text("analystname"), "");

    EXPECT_EQ(numbers("samplepos"), (std::vector<qint64>{0, 1300, 1800, 2200}));
    EXPECT_EQ(
        texts(o["sampleclock"].toArray()),
        (std::vector<std::string>{"08000000120000", "08010000120500", "08310000122000", "08310000122000"}));
    EXPECT_EQ(numbers("parampos"), (std::vector<qint64>{0, 2200}));
    EXPECT_EQ(o["paramrec"].toArray().size(), 2);
    EXPECT_EQ(o["paramrec"].toArray()[0].toString().size(), 512);
    EXPECT_EQ(numbers("jobpos"), (std::vector<qint64>{0, 2200}));
    EXPECT_EQ(numbers("gpspos"), (std::vector<qint64>{0, 2200})); // element 0 is always 0 after a walk
    const QJsonArray speeds = o["samplespeed"].toArray();
    ASSERT_EQ(speeds.size(), 3);
    EXPECT_EQ(speeds[0].toDouble(), 3.1); // the float's shortest text
    EXPECT_EQ(texts(o["speedhex"].toArray()), (std::vector<std::string>{"31", "25", "25"}));
    EXPECT_EQ(texts(o["gpstext"].toArray()),
              (std::vector<std::string>{"4546123401263812340A0B0C0D0E0F10111280"}));
    EXPECT_EQ(o["suppressionon"].toArray(), QJsonArray{false});
    EXPECT_EQ(o["jobrec"].toArray().size(), 1);
    EXPECT_EQ(numbers("markpos"), (std::vector<qint64>{1000}));
    EXPECT_EQ(texts(o["marktext"].toArray()), (std::vector<std::string>{"1"}));
    EXPECT_EQ(numbers("fepos"), (std::vector<qint64>{1200}));
    EXPECT_EQ(numbers("feval"), (std::vector<qint64>{40}));
    EXPECT_TRUE(o["fdpos"].toArray().isEmpty());
    EXPECT_TRUE(o["fdval"].toArray().isEmpty());
    EXPECT_EQ(numbers("stoplist"), (std::vector<qint64>{1100}));
    EXPECT_EQ(texts(o["analystlist"].toArray()), (std::vector<std::string>{"0005DC20261121140000150000"}));
    EXPECT_TRUE(o["analysispos"].toArray().isEmpty());
    EXPECT_TRUE(o["analysislist"].toArray().isEmpty());
    EXPECT_EQ(numbers("quarterindex"), (std::vector<qint64>{0, 2700}));
    EXPECT_EQ(texts(o["channelkind"].toArray()),
              (std::vector<std::string>{"47", "46", "49", "48", "4B", "4A", "25", "26", "00"}));
    EXPECT_EQ(numbers("channelscale"), (std::vector<qint64>(9, 1)));
    EXPECT_EQ(numbers("pinkongval"), (std::vector<qint64>(9, 0)));

    const QJsonObject panels = o["panels"].toObject();
    auto label = [&](const char* key) { return panels[key].toString().toStdString(); };
    EXPECT_EQ(label("Lzygk"), "日期:26.11.22  机号:12345");
    EXPECT_EQ(label("Lzyrq"), "26.11.22");
    EXPECT_EQ(label("Ljqbh"), "12345");
    EXPECT_EQ(label("Lqssj"), "08时01分");
    EXPECT_EQ(label("Ljssj"), "08时31分");
    EXPECT_EQ(label("Lgzsj"), "0时30分");
    EXPECT_EQ(label("Lqslc"), "0012公里050米");
    EXPECT_EQ(label("Ljslc"), "0012公里200米");
    EXPECT_EQ(label("Ltccd"), "0.003"); // 2200 - 800 - a stop's 400: 1000 positions of 3.5 mm
    EXPECT_EQ(label("Label2_1"), "探测速度：3.1km/h");
    EXPECT_EQ(label("meanspeed"), "0.0");
    const QJsonArray grid1 = panels["Grid1"].toArray();
    ASSERT_EQ(grid1.size(), 10);
    EXPECT_EQ(texts(grid1[0].toArray()), (std::vector<std::string>{"通道号", "增益值"}));
    EXPECT_EQ(texts(grid1[3].toArray()), (std::vector<std::string>{"C前外", "0.0"})); // left hand
    EXPECT_EQ(
        texts(panels["Grid2"].toArray()[1].toArray()),
        (std::vector<std::string>{"08:00:00", "李娜", "上行", "右股", "京哈线", "003", "012", "滨洲线"}));
    EXPECT_EQ(texts(panels["Grid3"].toArray()[1].toArray()),
              (std::vector<std::string>{"关", "关", "开", "手动", "60", "通常", "8V"}));
    EXPECT_EQ(label("Label2_8"), "经度126°38′1234″");
}

// A frame of a synthetic recording: the foot line, the bolt holes of a joint and an operator's mark
// stand where the generator put them.
TEST_F(CliDump, FrameDrawsTheJointWhereTheRecordingPutsIt) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const std::int32_t joint = rec.truth.joints.at(0);
    const std::int32_t view = joint - 600; // the joint in the middle of a picture of 1200
    CliRun r = cli("frame " + path + " --seed 3 --set Option17=1 --view " + std::to_string(view) + " --ops " +
                   temp.file("ops.json"));
    ASSERT_EQ(r.status, 0);
    std::ifstream in(temp.file("ops.json"));
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(o["scale"].toObject()["width"].toInt(), 1200);
    EXPECT_EQ(o["background"].toArray()[0].toObject()["y1"].toDouble(), 18);
    const QJsonArray ops = o["ops"].toArray();
    ASSERT_FALSE(ops.isEmpty());
    EXPECT_EQ(ops[0].toObject()["op"].toString(), "clear");
    // The hole 20 positions after the joint, seen by the 0 degree probe: x = 1200 - (hole - view).
    int holes = 0, foot = 0;
    for (const auto& v : ops) {
        const QJsonObject op = v.toObject();
        if (op["op"].toString() != "pset") continue;
        const double x = op["x"].toDouble(), y = op["y"].toDouble();
        if (x == 1200 - (joint + 20 - view) && y > 150 && y < 300) ++holes;
        if (y > 350 && y < 370) ++foot;
    }
    EXPECT_GE(holes, 1);
    EXPECT_GT(foot, 1000); // the made foot line nearly everywhere, broken over the holes
}

TEST_F(CliDump, RunPlaysTicksAndPrintsTheState) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    CliRun r = cli("run " + path + " --seed 3 --set Option17=1 --do press:Command8 --do tick:3");
    ASSERT_EQ(r.status, 0) << r.out;
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    const QJsonObject state = o["state"].toObject();
    EXPECT_EQ(state["viewindex"].toInt(), 600 + 3 * 7); // speed 5 of the seeded settings: 7 a tick
    EXPECT_EQ(state["replaystep"].toInt(), 7);
    EXPECT_TRUE(state["T1"].toBool());
    EXPECT_EQ(state["captions"].toObject()["Command8"].toString(), "播放暂停");
    EXPECT_EQ(state["HScrolljd"].toObject()["value"].toInt(), 2);
    EXPECT_TRUE(o["messages"].toArray().isEmpty());

    EXPECT_EQ(cli("run " + path + " --do press:NoSuchButton").status, 2);
    EXPECT_EQ(cli("run " + path + " --do tick:x").status, 2);
}

} // namespace

namespace {

// The state that run prints, as an object.
QJsonObject stateof(const CliRun& r) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object()["state"].toObject();
}

TEST_F(CliDump, SettingAnOptionAndPressingItLeaveTheSameState) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const QJsonObject start = stateof(cli("run " + path + " --seed 3"));
    int compared = 0;
    for (const char* name : {"Option1", "Option2", "Option3", "Option4", "Option5", "Option6", "Option7",
                             "Option8", "Option9", "Option10", "Option11", "Option14", "Option15", "Option16",
                             "Option17", "Option18", "Option19", "Option20", "Option21"}) {
        if (start["controls"].toObject()[name].toObject()["value"].toInt() == 1) continue; // already on
        // Each run starts from the seeded settings of a fresh station folder.
        std::filesystem::remove_all(home);
        // The clock stands, so that the session's start is the same in both.
        const CliRun set = cli("run " + path + " --seed 3 --clock 20261123-100000 --set " + name + "=1");
        std::filesystem::remove_all(home);
        const CliRun pressed = cli("run " + path + " --seed 3 --clock 20261123-100000 --do press:" + name);
        ASSERT_EQ(set.status, 0) << name;
        EXPECT_EQ(stateof(set), stateof(pressed)) << name;
        EXPECT_EQ(stateof(set)["controls"].toObject()[name].toObject()["value"].toInt(), 1) << name;
        ++compared;
    }
    EXPECT_GE(compared, 9); // one of each pair at least
}

TEST_F(CliDump, AMileageRangeToTheLargestNumberStopsAtTheGridsRows) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const CliRun r = cli("dump " + path + " --mileage 0:9223372036854775807");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonArray rows =
        QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object()["mileage"].toArray();
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(rows.first().toArray()[0].toInt(), 0);
    EXPECT_GT(rows.last().toArray()[0].toInteger(), rec.truth.lastposition);
    EXPECT_LT(rows.last().toArray()[0].toInteger(), 6400001);
}

TEST_F(CliDump, ARecordingThatCannotBeReadFailsWithItsReason) {
    const std::string missing = (std::filesystem::path(home).parent_path() / "missing.ktr").string();
    const std::string folder = (std::filesystem::path(home).parent_path() / "folder.ktr").string();
    std::filesystem::create_directories(folder);
    for (const std::string& file : {missing, folder})
        for (const char* command : {"dump ", "frame ", "run "}) {
            const CliRun r =
                cli(command + file + (std::string(command) == "frame " ? " --ops /dev/null" : ""));
            EXPECT_EQ(r.status, 1) << command << file;
            EXPECT_NE(r.err.find("无法读取文件：" + file), std::string::npos) << command << r.err;
        }
}

TEST_F(CliDump, KeysAndTheOverviewMoveTheViewHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const CliRun keys = cli("run " + path + " --do key:Picture1:PageDown --do key:Picture1:Right");
    ASSERT_EQ(keys.status, 0) << keys.err;
    const QJsonObject state = stateof(keys);
    EXPECT_EQ(state["viewindex"].toInt(), 600 + state["manualstep"].toInt() + 1200);
    EXPECT_TRUE(state["controls"].toObject()["Statusfile"].toObject()["caption"].toString().startsWith(
        QString::fromStdString(std::filesystem::path(path).filename().string()) + "  ("));
    const CliRun end = cli("run " + path + " --do key:Picture1:End --do key:Picture1:WheelDown");
    EXPECT_EQ(stateof(end)["viewindex"].toInt(), stateof(end)["HScrolljd"].toObject()["max"].toInt() * 300);
    EXPECT_NE(end.out.find("已经播放到文件最后位置！"), std::string::npos);
    const CliRun strip = cli("run " + path + " --do mouse:Overview:down:left:0:0");
    EXPECT_EQ(stateof(strip)["viewindex"].toInt(), 600);
    const CliRun bad = cli("run " + path + " --do key:Picture1:F12");
    EXPECT_EQ(bad.status, 2);
    EXPECT_NE(bad.err.find("F12"), std::string::npos);
}

TEST_F(CliDump, EveryControlOfTheTableCanBeReachedHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    std::string actions;
    for (const orvane::Control& c : st.controls.all()) {
        if (orvane::ControlTable::formof(c.name) != "Form28") continue;
        const std::string n = c.name;
        switch (c.kind) {
        case orvane::ControlKind::checkbox:
        case orvane::ControlKind::option:
            actions += " --do 'set:" + n + ":1'";
            break;
        case orvane::ControlKind::tabs:
            actions += " --do set:" + n + ":1";
            break;
        case orvane::ControlKind::scrollbar:
            actions += " --do scroll:" + n + ":" + std::to_string(c.min);
            break;
        case orvane::ControlKind::textbox:
            actions += " --do enter:" + n + ":1";
            break;
        case orvane::ControlKind::canvas:
            actions += " --do mouse:" + n + ":down:left:300:100";
            break;
        case orvane::ControlKind::grid:
        case orvane::ControlKind::combobox:
            break;
        default:
            actions += " --do 'press:" + n + "'"; // the shell keeps the parentheses of f1to8(0)
        }
    }
    // The alignment window's controls while it is open, then its close box.
    actions += " --do press:Command3 --do set:Formpk2.HScroll2:7 --do press:Formpk2.Cmdbc --do close:Formpk2";
    // The gain curve and the replay log that their buttons opened, closed by their close boxes.
    actions += " --do close:Form29 --do close:Form4";
    // The notice that the print buttons opened.
    actions += " --do close:Form25";
    // The tables' windows replace one another: the last opener's window, the instruments.
    actions += " --do close:Form2";
    const CliRun r = cli("run " + path + " --seed 3 --answer 255 --answer 255" + actions);
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject state = stateof(r);
    EXPECT_EQ(state["open"].toArray().size(), 1);
    EXPECT_EQ(state["open"].toArray()[0].toString(), "Form28");
    for (const orvane::Control& c : st.controls.all())
        if (orvane::ControlTable::formof(c.name) == "Form28" && c.kind != orvane::ControlKind::grid)
            EXPECT_TRUE(state["controls"].toObject().contains(QString::fromStdString(c.name))) << c.name;
    EXPECT_TRUE(state["grids"].toObject().contains("Grid1"));
}

TEST_F(CliDump, CurvesAndTheTrackDrawOnTheirCanvasesHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const std::string ops = temp.file("gain.json");
    const CliRun r =
        cli("run " + path +
            " --do press:Command16 --do press:Form29.Command3 --do press:Lyycs --canvas Form29.Picture1 "
            "--ops " +
            ops);
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject state = stateof(r);
    EXPECT_EQ(state["curveend"].toDouble(), rec.truth.lastposition);
    EXPECT_EQ(state["curvemargin"].toDouble(), rec.truth.lastposition * 0.08);
    const QJsonArray open = state["open"].toArray();
    EXPECT_TRUE(open.contains("Form29"));
    EXPECT_TRUE(open.contains("Form4"));
    EXPECT_TRUE(state["controls"].toObject().contains("Form29.Label14"));
    EXPECT_EQ(state["grids"].toObject()["Form4.Grid1ts"].toArray()[0].toArray()[0].toString(), "日期");
    std::ifstream in(ops);
    const std::string text((std::istreambuf_iterator<char>(in)), {});
    const QJsonObject picture = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    EXPECT_EQ(picture["scale"].toObject()["width"].toDouble(), rec.truth.lastposition * 1.08);
    EXPECT_EQ(picture["scale"].toObject()["height"].toDouble(), 60);
    int lines = 0;
    for (const auto& op : picture["ops"].toArray()) lines += op.toObject()["op"].toString() == "line";
    // Two lines a parameter record and channel.
    EXPECT_EQ(lines, 2 * 9 * rec.truth.params);

    const CliRun track = cli("run " + path + " --do press:Command22 --do tick:2 --canvas picturegj --png " +
                             temp.file("track.png"));
    ASSERT_EQ(track.status, 0) << track.err;
    const QJsonObject t = stateof(track);
    EXPECT_EQ(t["trackcount"].toInt(), rec.truth.gps);
    EXPECT_EQ(t["trackx"].toArray().size(), rec.truth.gps);
    EXPECT_TRUE(t["Timer1"].toBool());
    EXPECT_TRUE(t["Shape6"].toObject()["visible"].toBool());
    EXPECT_TRUE(std::filesystem::exists(temp.file("track.png")));
}

TEST_F(CliDump, RunOfARecordingWithoutSamplesSaysSoAndActsOnTheEmptyWindow) {
    const std::string path = writefile("empty.ktr", std::string(1024, '\0'));
    const CliRun r =
        cli("run " + path + " --set Option16=1 --do press:Command8 --do tick:3 --do press:Command34");
    ASSERT_EQ(r.status, 0);
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    EXPECT_EQ(o["messages"].toArray()[0].toString(), "没有数据！");
    const QJsonObject state = o["state"].toObject();
    EXPECT_FALSE(state["T1"].toBool()); // the replay buttons stay disabled
    EXPECT_FALSE(state["controls"].toObject()["Command8"].toObject()["enabled"].toBool());
    EXPECT_EQ(state["viewindex"].toInt(), 600);
}

TEST_F(CliDump, StaffWindowKeepsItsTableHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const CliRun r =
        cli("run " + path +
            " --do press:Command23 --do press:Form5.CmdAdd --do set:Form5.Tbh:12 --do press:Form5.Command2"
            " --do set:Form5.Tbh:40 --do 'set:Form5.Txm:O'\\''Neil' --do press:Form5.Command2");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    EXPECT_EQ(o["messages"].toArray()[0].toString(), "编号重复，增加失败");
    const QJsonObject state = o["state"].toObject();
    EXPECT_EQ(state["open"].toArray()[1].toString(), "Form5");
    const QJsonArray rows = state["grids"].toObject()["Form5.Grid1"].toArray();
    ASSERT_EQ(rows.size(), 7);
    EXPECT_EQ(rows[6].toArray()[0].toString(), "40");
    EXPECT_EQ(rows[6].toArray()[1].toString(), "O'Neil");
    EXPECT_FALSE(state["controls"].toObject()["Form5.Command2"].toObject()["enabled"].toBool());
    // The row stays in the station folder for the next run, and a workbook goes out and back in.
    const std::string books = temp.file("books");
    const CliRun out =
        cli("run " + path + " --workbooks " + books + " --do press:Command23 --do press:Form5.Command3");
    ASSERT_EQ(out.status, 0) << out.err;
    const CliRun in =
        cli("run " + path + " --answer " + books + "/1.xlsx --do press:Command23 --do press:Form5.Command4");
    ASSERT_EQ(in.status, 0) << in.err;
    EXPECT_EQ(stateof(in)["grids"].toObject()["Form5.Grid1"].toArray(), rows);
}

TEST_F(CliDump, ANewMarkTextShowsInTheNextFrame) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const std::string change =
        " --set shoudbjz.bpy=0 --do dblclick:Grid1ts --do row:Form7.Grid1:1 --do set:Form7.Tmc:新焊缝"
        " --do press:Form7.Command1 --do press:Form7.CmdCancel";
    const CliRun r = cli("run " + path + change + " --do press:Command1 --do row:Grid1ts:2");
    ASSERT_EQ(r.status, 0) << r.err;
    const int view = stateof(r)["viewindex"].toInt();
    const std::string ops = temp.file("ops.json");
    ASSERT_EQ(cli("frame " + path + " --set shoudbjz.bpy=0 --view " + std::to_string(view) + " --ops " + ops)
                  .status,
              0);
    std::ifstream in(ops);
    const std::string text((std::istreambuf_iterator<char>(in)), {});
    EXPECT_NE(text.find("\"text\":\"新焊缝\""), std::string::npos);
    EXPECT_EQ(text.find("\"text\":\"焊缝\""), std::string::npos);
}

TEST_F(CliDump, BadControlsAreRefusedAndChangeNothing) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    EXPECT_EQ(cli("run " + path + " --set Check99=1").status, 2);
    EXPECT_EQ(cli("run " + path + " --do set:Nope:1").status, 2);
    EXPECT_EQ(cli("run " + path + " --do press:Formpk2.Cmdbc").status, 1); // the window is not open
    EXPECT_EQ(cli("run " + path + " --set Formpk2.HScroll1=3").status, 1);
    EXPECT_EQ(cli("run " + path + " --do scroll:HScrolljd:far").status, 2);
    EXPECT_EQ(cli("run " + path + " --set HScroll8=12").status, 2);
    EXPECT_EQ(cli("run " + path + " --set HScroll8=3 --set HScroll8=0").status, 2);
    // The speed before the refused value was written; the refused one was not.
    const CliRun r = cli("settings");
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    EXPECT_EQ(o["color"].toObject()["bofsd"].toObject()["shuzhi"].toInt(), 3);
    EXPECT_EQ(cli("run " + path + " --do close:Form99").status, 2);
}

TEST_F(CliDump, AlignmentOfTheMainSideRoundTripsHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const CliRun r = cli("run " + path + " --seed 3 --do press:Command3 --do scroll:Formpk2.HScroll1:-5");
    ASSERT_EQ(r.status, 0) << r.out;
    const QJsonObject state = stateof(r);
    EXPECT_EQ(state["open"].toArray().size(), 2);
    EXPECT_EQ(state["controls"].toObject()["Formpk2.HScroll1"].toObject()["value"].toInt(), -5);
    EXPECT_EQ(state["replaystep"].toInt(), 0);
    const CliRun closed = cli("run " + path + " --seed 3 --do press:Command3 --do close:Formpk2");
    EXPECT_EQ(stateof(closed)["replaystep"].toInt(), 7);
    EXPECT_FALSE(stateof(closed)["controls"].toObject().contains("Formpk2.HScroll1"));
}

TEST_F(CliDump, FilterHitsAndTheirRowClickHeadless) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const CliRun before = cli("run " + path + " --seed 3 --cells 0:100000 --cellsdb 0:10");
    const QJsonObject unfiltered = QJsonDocument::fromJson(QByteArray::fromStdString(before.out)).object();
    EXPECT_TRUE(unfiltered["cellsdb"].toArray().isEmpty()); // no store yet
    const CliRun r =
        cli("run " + path + " --do press:Command2 --do row:Grid1bj:1 --cells 0:100000 --cellsdb 0:100000");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    const QJsonObject state = o["state"].toObject();
    EXPECT_EQ(state["filteractive"].toInt(), 1);
    EXPECT_EQ(state["comparisonstore"].toString(), "yes");
    EXPECT_GT(state["eventcount"].toInt(), 0);
    const int hits = state["hitcount"].toInt();
    ASSERT_GT(hits, 0);
    EXPECT_EQ(state["hitpos"].toArray().size(), hits);
    EXPECT_EQ(state["hitchannel"].toArray()[0].toString().size(), 9);
    const QJsonArray rows = state["grids"].toObject()["Grid1bj"].toArray();
    ASSERT_EQ(rows.size(), hits + 1);
    EXPECT_EQ(rows[0].toArray()[1].toString(), "报警通道");
    EXPECT_EQ(state["viewindex"].toInt(), std::max(600, state["hitpos"].toArray()[0].toInt() - 800));
    EXPECT_TRUE(state["controls"].toObject()["Command14"].toObject()["enabled"].toBool());
    // The backup holds the cells as they were; the main side lost its short runs.
    EXPECT_EQ(o["cellsdb"].toArray().size() > 0, true);
    EXPECT_LT(o["cells"].toArray().size(), unfiltered["cells"].toArray().size());
    const CliRun cancelled =
        cli("run " + path + " --seed 3 --do press:Command2 --do press:Command14 --cells 0:100000");
    const QJsonObject back = QJsonDocument::fromJson(QByteArray::fromStdString(cancelled.out)).object();
    EXPECT_EQ(back["cells"].toArray(), unfiltered["cells"].toArray());
}

TEST_F(CliDump, ComparisonOpensFromTheAnswerAndDrawsBelow) {
    ktrgen::Recording rec;
    const std::string path = smallrecording(rec);
    const std::string png = temp.file("below.png");
    const CliRun r = cli("run " + path + " --answer " + path +
                         " --do press:Command17 --canvas Picture6 --png " + png + " --cellsdb 0:2000");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    const QJsonObject state = o["state"].toObject();
    EXPECT_EQ(o["messages"].toArray()[0].toString().toStdString(), path);
    EXPECT_EQ(state["captions"].toObject()["Command17"].toString(), "关闭对比");
    EXPECT_TRUE(state.contains("viewindexdb"));
    EXPECT_EQ(state["displaymode"].toString(), "zuhe");
    EXPECT_EQ(state["filepathdb"].toString().toStdString(), path);
    EXPECT_FALSE(o["cellsdb"].toArray().isEmpty());
    EXPECT_TRUE(std::filesystem::exists(png));
    // Without an answer the dialog is cancelled and the button closes again.
    const QJsonObject cancelled = stateof(cli("run " + path + " --do press:Command17"));
    EXPECT_EQ(cancelled["captions"].toObject()["Command17"].toString(), "打开对比");
    EXPECT_FALSE(cancelled.contains("viewindexdb"));
}

} // namespace
