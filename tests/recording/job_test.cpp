// The job record in Grid2 and the job summary of a loaded recording.
#include "app/startup.h"
#include "ktrbuilder.h"
#include "recording/hex.h"
#include "recording/panels.h"
#include "station/ports.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using namespace orvane;
using testkit::Job;
using testkit::KtrBuilder;
using testkit::Sample;

namespace {

class Jobs : public testkit::StationTest {
  protected:
    void SetUp() override { start(); }
    // Loads B as the window's first activation does.
    void open(const KtrBuilder& b) {
        windowload(st, writefile("run.ktr", b.bytes()));
        windowactivate(st);
    }
    // Shows the job record J alone in Grid2 of SIDE.
    void apply(const Job& j, Side& side, bool timecolumn = false) {
        KtrBuilder b;
        b.job(j);
        setpanelheads(st);
        side.jobrec.resize(1);
        side.jobrec[0] = hexof(b.records()[0].data(), 256);
        applyjob(st, side, 0, timecolumn);
    }
    void apply(const Job& j) { apply(j, st.zhu); }
    std::string label(const std::string& name) { return st.form.labels[name]; }
    // Parameters, a job record and three samples: 08:29, 08:30 and 09:45, the last at step S.
    static KtrBuilder recording(const Job& j = {}, std::int32_t laststep = 300000) {
        KtrBuilder b;
        b.param().job(j).samples(
            {Sample{.hour = 8, .minute = 29, .km = 123, .metres = 400, .step = 0},
             Sample{.hour = 8, .minute = 30, .km = 123, .metres = 456, .step = 10},
             Sample{.hour = 9, .minute = 45, .km = 124, .metres = 100, .step = laststep}});
        return b;
    }
};

TEST_F(Jobs, Grid2ShowsOperatorDirectionRailLineTrackAndIron) {
    apply(Job{.operatorno = "012", .direction = 1, .rail = 'L'});
    const std::vector<std::string> row = {"", "刘洋", "下行", "左股", "京哈线", "003", "012", "滨洲线"};
    EXPECT_EQ(st.zhu.Grid2[1], row);
    EXPECT_EQ(st.zhu.Grid2[0][1], "执机人");
}

TEST_F(Jobs, OperatorLetterOAndBlankCountAsZero) {
    apply(Job{.operatorno = "O 1"});
    EXPECT_EQ(st.zhu.Grid2[1][1], "张伟");
}

TEST_F(Jobs, UnknownOperatorShowsTheNumberAndUnknownLineNothing) {
    apply(Job{.operatorno = "099", .linecode = "77", .linename = "999"});
    EXPECT_EQ(st.zhu.Grid2[1][1], "099");
    EXPECT_EQ(st.zhu.Grid2[1][4], "");
    EXPECT_EQ(st.zhu.Grid2[1][7], "");
}

TEST_F(Jobs, EveryDirectionAndAnUnknownOneAsUp) {
    const char* names[] = {"上行", "下行", "站线", "联线", "单线", "其它", "上行", "上行"};
    for (int d = 0; d < 8; ++d) {
        apply(Job{.direction = static_cast<std::uint8_t>(d == 7 ? 0x30 : d)});
        EXPECT_EQ(st.zhu.Grid2[1][2], names[d]) << d;
    }
    apply(Job{.rail = 'R'});
    EXPECT_EQ(st.zhu.Grid2[1][3], "右股");
}

TEST_F(Jobs, EnglishDirectionAndRail) {
    st.language = "english";
    apply(Job{.direction = 0, .rail = 'L'});
    EXPECT_EQ(st.zhu.Grid2[1][2], "up");
    EXPECT_EQ(st.zhu.Grid2[1][3], "left");
    EXPECT_EQ(st.zhu.Grid2[0][0], "Time");
    apply(Job{.direction = 3, .rail = 'R'});
    EXPECT_EQ(st.zhu.Grid2[1][2], "down");
    EXPECT_EQ(st.zhu.Grid2[1][3], "right");
}

TEST_F(Jobs, CountDirectionHandAndResetMode) {
    apply(Job{.hand = 'L', .count = 'I', .resetmode = 0x21});
    EXPECT_EQ(st.trackside, "左手");
    EXPECT_EQ(st.countdirection, "+");
    EXPECT_EQ(st.resetmodetext, "复位模式:33");
    apply(Job{.hand = 'R', .count = 'D'});
    EXPECT_EQ(st.trackside, "右手");
    EXPECT_EQ(st.countdirection, "-");
    EXPECT_EQ(st.resetmodetext, "复位模式:0");
}

TEST_F(Jobs, ComparisonJobFillsItsOwnGridOnly) {
    apply(Job{.hand = 'L'}, st.cong);
    EXPECT_EQ(st.cong.Grid2[1][4], "京哈线");
    EXPECT_EQ(st.trackside, "");
}

TEST_F(Jobs, RestartSectionCarriesItsTimeWhileTheTimeColumnIsShown) {
    apply(Job{.type = 0x53, .hour = 14, .minute = 7, .second = 9, .section = 0x01}, st.zhu, true);
    EXPECT_EQ(st.zhu.Grid2[1][0], "14时07分09秒");
    apply(Job{.type = 0x53, .hour = 14, .minute = 7, .second = 9, .section = 0x01}, st.zhu, false);
    EXPECT_EQ(st.zhu.Grid2[1][0], "");
    apply(Job{.type = 0x45, .section = 0x01}, st.zhu, true);
    EXPECT_EQ(st.zhu.Grid2[1][0], "");
}

TEST_F(Jobs, SummaryOfASmallCompleteRecording) {
    open(recording());
    ASSERT_TRUE(ui.messages.empty());
    EXPECT_EQ(st.zhu.lastposition, 301200);
    EXPECT_EQ(st.machineno, "12345");
    EXPECT_EQ(st.jobcaption, "机号:12345");
    EXPECT_EQ(st.jobdatetext, "26.11.22.09");
    EXPECT_EQ(label("Lzygk"), "日期:26.11.22  机号:12345");
    EXPECT_EQ(label("Lzyrq"), "26.11.22");
    EXPECT_EQ(label("Ljqbh"), "12345");
    EXPECT_EQ(label("Lqssj"), "08时30分");
    EXPECT_EQ(label("Ljssj"), "09时45分");
    EXPECT_EQ(label("Lgzsj"), "1时15分");
    EXPECT_EQ(label("Lqslc"), "0123公里456米");
    EXPECT_EQ(label("Ljslc"), "0124公里100米");
    // (301200 - 800) · 0.0035 / 1000 = 1.0514 km in 1.25 hours
    EXPECT_EQ(label("Ltccd"), "1.051");
    EXPECT_EQ(st.meanspeed, "0.8");
    EXPECT_EQ(label("Label2_1"), "探测速度：2.5km/h");
    EXPECT_EQ(st.zhu.Grid2[1][0], "08:29:00");
    EXPECT_EQ(st.zhu.Grid2[1][1], "007"); // operator 7 has no row of staff: the number
}

TEST_F(Jobs, SummaryInEnglish) {
    st.language = "english";
    open(recording());
    EXPECT_EQ(label("Lzygk"), "Date:26.11.22 M/C:12345");
    EXPECT_EQ(label("Label2_1"), "Speed：2.5km/h");
}

TEST_F(Jobs, SingleSampleStartsFromTheSentinelThatRepeatsIt) {
    KtrBuilder b;
    b.param().job(Job{}).samples({Sample{.hour = 7, .minute = 5, .km = 9, .metres = 8}});
    open(b);
    EXPECT_EQ(st.zhu.sampleclock[1], st.zhu.sampleclock[0]);
    EXPECT_EQ(label("Lqssj"), "07时05分");
    EXPECT_EQ(label("Ljssj"), "07时05分");
    EXPECT_EQ(label("Lqslc"), "0009公里008米");
}

TEST_F(Jobs, WheelByteBelowFiftyCountsAsFullAndFiftyAsHalf) {
    open(recording(Job{.wheel = 49}));
    EXPECT_EQ(label("Ltccd"), "1.051");
}

TEST_F(Jobs, WheelByteOfFiftyHalvesTheLength) {
    open(recording(Job{.wheel = 50}));
    EXPECT_EQ(label("Ltccd"), "0.525"); // 0.5257
}

TEST_F(Jobs, ZeroMinutesGiveSpeedZeroWithoutDivision) {
    KtrBuilder b;
    b.param().job(Job{}).samples({Sample{.hour = 8, .minute = 30, .step = 0},
                                  Sample{.hour = 8, .minute = 30, .step = 10},
                                  Sample{.hour = 8, .minute = 30, .step = 5000}});
    open(b);
    EXPECT_EQ(label("Lgzsj"), "0时0分");
    EXPECT_EQ(st.meanspeed, "0");
}

TEST_F(Jobs, WorkAcrossMidnightCountsTwentyMinutes) {
    KtrBuilder b;
    b.param().job(Job{}).samples({Sample{.hour = 23, .minute = 50, .step = 0},
                                  Sample{.hour = 23, .minute = 50, .step = 10},
                                  Sample{.hour = 0, .minute = 10, .step = 5000}});
    open(b);
    EXPECT_EQ(label("Lqssj"), "23时50分");
    EXPECT_EQ(label("Ljssj"), "00时10分");
    EXPECT_EQ(label("Lgzsj"), "0时20分");
}

TEST_F(Jobs, RestartsAndStopsAreTakenOffTheLength) {
    KtrBuilder b = recording();
    b.job(0x53, 0).samples({Sample{.hour = 9, .minute = 46, .step = 100}});
    b.detection({{200, 0xFF, 0x01}});
    open(b);
    // the new base is the last sample 300800 + 1000; the sample after it at 301900 puts the end at 302300
    EXPECT_EQ(st.restartcount, 1);
    EXPECT_EQ(st.zhu.stopcount, 1);
    EXPECT_EQ(st.zhu.lastposition, 302300);
    // (302300 - 800 - 1000 - 400) · 0.0035 / 1000 = 1.05035
    EXPECT_EQ(label("Ltccd"), "1.050");
}

TEST_F(Jobs, UnsetInstrumentNumberReadsAsZeros) {
    open(recording(Job{.instrument = std::string("\x01\x00\x33\x34\x35", 5)}));
    EXPECT_EQ(st.machineno, "00000");
    EXPECT_EQ(st.jobcaption, "机号:00000");
}

TEST_F(Jobs, InstrumentNumberIsTrimmed) {
    open(recording(Job{.instrument = " K7  "}));
    EXPECT_EQ(st.machineno, "K7");
}

TEST_F(Jobs, SummaryTakesTheLastJobRecord) {
    KtrBuilder b = recording(Job{.instrument = "11111"});
    b.job(Job{.type = 0x57, .step = 20, .day = 23, .instrument = "22222"});
    open(b);
    EXPECT_EQ(st.machineno, "22222");
    EXPECT_EQ(label("Lzyrq"), "26.11.23");
}

TEST_F(Jobs, RowOfTablePinkongGivesTheAlignmentWordsOfAToH) {
    st.gpsxdb->exec("insert into pinkong values ('12345', 1, 2, 3, 4, 5, 6, 7, -8)");
    testkit::Param p;
    p.words = {0, 0, 0, 0, 0, 0, 0, 0, 9};
    KtrBuilder b;
    b.param(p).job(Job{}).samples({Sample{.step = 0}, Sample{.step = 10}});
    open(b);
    EXPECT_EQ(st.pinkonghit, 1);
    const std::array<std::int16_t, 9> words = {1, 2, 3, 4, 5, 6, 7, -8, 9};
    EXPECT_EQ(st.zhu.pinkongval, words);
}

TEST_F(Jobs, WithoutAPinkongRowTheRecordsWordsStand) {
    testkit::Param p;
    p.words = {3, 0, 0, 0, 0, 0, 0, 0, 0};
    KtrBuilder b;
    b.param(p).job(Job{}).samples({Sample{.step = 0}});
    open(b);
    EXPECT_EQ(st.pinkonghit, 0);
    EXPECT_EQ(st.zhu.pinkongval[0], 3);
}

// Five GPS pairs behind the samples make the end mileage come from the mileage axis.
TEST_F(Jobs, WithMoreThanFourGpsFixesTheEndMileageComesFromTheAxis) {
    KtrBuilder b;
    b.param().job(Job{});
    std::vector<std::array<std::uint8_t, 11>> entries;
    entries.push_back(KtrBuilder::sampleentry(Sample{.km = 5, .metres = 0, .step = 0}));
    entries.push_back(KtrBuilder::sampleentry(Sample{.km = 5, .metres = 100, .step = 1000}));
    for (int i = 0; i < 5; ++i) {
        entries.push_back(KtrBuilder::gpsfirst("454612340126381234"));
        entries.push_back(KtrBuilder::gpssecond("000000000000000000"
                                                "50"));
    }
    b.sampleentries(entries);
    open(b);
    ASSERT_EQ(st.zhu.gpscount, 5);
    // last 2200; position 1700 lies 9/10 of the way from 800 (5.000) to 1800 (5.100)
    EXPECT_EQ(label("Ljslc"), "0005公里090米");
    EXPECT_EQ(st.zhu.Grid3[1][6], "5V");
}

TEST_F(Jobs, WithMoreThanFortyFixesAJumpingClockAtTheEndsIsPassedOver) {
    KtrBuilder b;
    b.param().job(Job{});
    // 30 samples, five a minute from 10:00, but the first two and the last two show a wrong clock.
    std::vector<Sample> samples;
    for (int i = 0; i < 30; ++i) {
        Sample s{.hour = 10, .minute = i / 5, .km = 7, .metres = 10 * i, .step = 100 * i};
        if (i < 2 || i >= 28) s.hour = 3;
        samples.push_back(s);
    }
    b.samples(std::vector<Sample>(samples.begin(), samples.begin() + 15));
    b.samples(std::vector<Sample>(samples.begin() + 15, samples.end()));
    for (int r = 0; r < 4; ++r) {
        std::vector<std::array<std::uint8_t, 11>> gps;
        for (int i = 0; i < 11; ++i) {
            gps.push_back(KtrBuilder::gpsfirst("454612340126381234"));
            gps.push_back(KtrBuilder::gpssecond("000000000000000000"
                                                "60"));
        }
        b.sampleentries(gps);
    }
    open(b);
    ASSERT_EQ(st.zhu.gpscount, 44);
    EXPECT_EQ(label("Lqssj"), "10时00分");
    EXPECT_EQ(label("Lqslc"), "0007公里020米");
    EXPECT_EQ(label("Ljssj"), "10时05分");
    EXPECT_EQ(label("Ljslc"), "0007公里270米");
    EXPECT_EQ(label("Lgzsj"), "0时5分");
}

} // namespace
