// The walk of a recording and its decoders, on recordings built byte by byte.
#include "app/startup.h"
#include "ktrbuilder.h"
#include "recording/decoders.h"
#include "recording/hex.h"
#include "recording/walk.h"
#include "stationfixture.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

using namespace orvane;
using testkit::Hit;
using testkit::KtrBuilder;
using testkit::Param;
using testkit::Sample;

namespace {

class Walk : public testkit::StationTest {
  protected:
    Side& load(const KtrBuilder& b, const std::string& name = "run.ktr") {
        return walkrecording(b.bytes(), st.zhu, name);
    }
    Side& loadbytes(const std::string& bytes) { return walkrecording(bytes, st.zhu); }
    // A recording with a parameter record and a sample at step 0, then what the test adds.
    KtrBuilder started(const Param& p = {}) {
        KtrBuilder b;
        b.param(p).samples({Sample{}});
        return b;
    }
};

TEST_F(Walk, EmptyFileLoadsNothingAndShowsNoData) {
    start();
    windowload(st, writefile("run.ktr", ""));
    windowactivate(st);
    EXPECT_EQ(st.zhu.samplecount, 0);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
}

TEST_F(Walk, FileOfZeroRecordsBehavesAsAnEmptyOne) {
    start();
    windowload(st, writefile("run.ktr", KtrBuilder().zeros(20).bytes()));
    windowactivate(st);
    EXPECT_EQ(st.zhu.samplecount, 0);
    EXPECT_EQ(st.zhu.lastposition, 0);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
}

TEST_F(Walk, RecordingWithoutSamplesHasNoData) {
    KtrBuilder b;
    b.param().detection({{10, 1, 50}});
    Side& s = load(b);
    EXPECT_EQ(s.samplecount, 0);
    EXPECT_EQ(s.lastposition, 810);
}

TEST_F(Walk, PositionsAddTheSegmentBase) {
    KtrBuilder b = started();
    b.detection({{100, 1, 50}, {120, 2, 60}});
    Side& s = load(b);
    EXPECT_EQ(s.segmentbase, 800);
    EXPECT_GT(s.samplegrid[900][0], 0);
    EXPECT_EQ(s.rawgrid[900][0], 50);
    EXPECT_EQ(s.rawgrid[920][1], 60);
}

TEST_F(Walk, RestartBeforeTheFirstSampleKeepsTheBaseOffset) {
    KtrBuilder b;
    b.param().job(0x53, 5).samples({Sample{.step = 10}});
    Side& s = load(b);
    EXPECT_EQ(s.segmentbase, 800);
    EXPECT_EQ(s.jobpos[0], 0); // element 0 is set to 0 after the walk
    EXPECT_EQ(s.samplegrid[805][9], 23);
    EXPECT_EQ(st.restartcount, 0);
}

TEST_F(Walk, RestartBeforeTheFirstSampleTakesAHigherLastPosition) {
    KtrBuilder b;
    b.param().detection({{2000, 1, 9}}).job(0x53, 5).samples({Sample{.step = 10}});
    Side& s = load(b);
    EXPECT_EQ(s.segmentbase, 2800); // lastposition of the detection record
}

TEST_F(Walk, RestartLeavesAGapOfAThousandBehindTheLastSample) {
    KtrBuilder b = started();
    b.samples({Sample{.step = 500}}).job(0x53, 0).samples({Sample{.step = 7}});
    Side& s = load(b);
    EXPECT_EQ(s.segmentbase, 800 + 500 + 1000);
    EXPECT_EQ(s.samplepos[2], 2300 + 7);
    EXPECT_EQ(s.samplegrid[2300][9], 23);
    EXPECT_EQ(st.restartcount, 1);
}

TEST_F(Walk, SecondOfTwoRestartsUsesTheLastPositionWhenGreater) {
    KtrBuilder b = started();
    b.samples({Sample{.step = 100}}).detection({{5000, 1, 3}}).job(0x53, 0).job(0x53, 0);
    Side& s = load(b);
    // First: last sample 900 + 1000 = 1900, below lastposition 5800, so 5800. Second: the same rule
    // gives 1900 again, raised to lastposition 5800.
    EXPECT_EQ(s.segmentbase, 5800);
    EXPECT_EQ(st.restartcount, 2);
}

TEST_F(Walk, RestartTakesTheLastGpsPositionWhenFurther) {
    KtrBuilder b = started();
    b.samples({Sample{.step = 100}});
    b.sampleentries({KtrBuilder::sampleentry(Sample{.step = 3000}),
                     KtrBuilder::gpsfirst("451230001261234500"), KtrBuilder::gpssecond("00")});
    b.job(0x53, 0);
    Side& s = load(b);
    EXPECT_EQ(s.segmentbase, 3800 + 1000);
}

TEST_F(Walk, JobCountStopsAt990AndTheLastElementTakesNewRecords) {
    KtrBuilder b = started();
    for (int i = 0; i < 995; ++i) b.job(0x45, i + 1);
    Side& s = load(b);
    EXPECT_EQ(s.jobcount, 990);
    EXPECT_EQ(s.jobpos[989], 800 + 990);
    // Element 990 got the later records, and then the sentinel.
    EXPECT_EQ(s.jobpos[990], s.lastposition);
    EXPECT_EQ(s.lastposition, 800 + 990 + 400); // the end follows element 989, the last counted one
}

TEST_F(Walk, MileageJumpOfMoreThanFourHundredMetresStaysUnknown) {
    KtrBuilder b = started();
    b.samples({Sample{.km = 10, .metres = 0, .step = 100}, Sample{.km = 10, .metres = 401, .step = 200}});
    Side& s = load(b);
    EXPECT_FLOAT_EQ(s.mileage[900][0], 10.0f);
    EXPECT_FLOAT_EQ(s.mileage[1000][0], 10.401f);
    EXPECT_EQ(s.mileage[950][0], 0.0f);
}

TEST_F(Walk, MileageJumpOfExactlyFourHundredMetresIsInterpolated) {
    KtrBuilder b = started();
    b.samples({Sample{.km = 10, .metres = 0, .step = 100}, Sample{.km = 10, .metres = 400, .step = 200}});
    Side& s = load(b);
    float expected = static_cast<float>(10.0f + static_cast<double>(10.4f - 10.0f) / 100 * 50);
    EXPECT_EQ(s.mileage[950][0], expected);
}

TEST_F(Walk, EndLiesFourHundredBehindTheLastSampleAndJob) {
    KtrBuilder b = started();
    b.samples({Sample{.step = 1000}}).job(0x45, 1200);
    st.settings.wholefile = 1; // the whole file in view: the bar reaches the end
    st.settings.reverseshow = 1;
    Side& s = load(b);
    EXPECT_EQ(s.lastposition, 2000 + 400);
    EXPECT_EQ(s.samplepos[s.samplecount], s.lastposition);
    EXPECT_EQ(s.sampleclock[s.samplecount], s.sampleclock[s.samplecount - 1]);
    EXPECT_EQ(s.paramrec[s.paramcount], s.paramrec[s.paramcount - 1]);
    EXPECT_EQ(s.samplepos[0], 0);
    EXPECT_EQ(s.scrollmax, 2400 / 300);
}

TEST_F(Walk, QuarterIndexKeepsEveryFourthDetectionRecord) {
    KtrBuilder b = started();
    for (int i = 1; i <= 9; ++i) b.detection({{i * 10, 1, 1}});
    Side& s = load(b);
    EXPECT_EQ(s.quartercount, 9);
    EXPECT_EQ(s.quarterlast, 3);
    EXPECT_EQ(s.quarterindex[0], 0);
    EXPECT_EQ(s.quarterindex[1], 840);
    EXPECT_EQ(s.quarterindex[2], 880);
    EXPECT_EQ(s.quarterindex[3], s.lastposition + 500);
}

TEST_F(Walk, JobFlagsComeFromTheLastJobRecord) {
    KtrBuilder b = started();
    b.job(0x45, 1, 0x00).job(0x57, 2, 0x21);
    load(b);
    EXPECT_EQ(st.subwayflag, "feibeijingditie");
    EXPECT_EQ(st.bureauflag, "beijingjv");
    KtrBuilder c = started();
    c.job(0x45, 1, 0x02);
    load(c, "two.ktr");
    EXPECT_EQ(st.subwayflag, "beijingditie");
    EXPECT_EQ(st.bureauflag, "feibjj");
}

TEST_F(Walk, ProgressBarCountsTheRecords) {
    KtrBuilder b = started();
    b.zeros(3);
    load(b);
    EXPECT_DOUBLE_EQ(ui.barmax, 5);
    EXPECT_EQ(ui.barvalue, 4);
}

TEST_F(Walk, PartialLastRecordReadsAsZerosBehind) {
    KtrBuilder b = started();
    b.detection({{300, 1, 40}});
    std::string bytes = b.bytes().substr(0, 2 * 256 + 140); // 1.55 records past two: rounds to index 2
    Side& s = loadbytes(bytes);
    EXPECT_EQ(s.rawgrid[1100][0], 40);
    EXPECT_EQ(s.lastposition, 1200); // 400 behind the sample at 800
}

TEST_F(Walk, ShortTailBelowHalfARecordIsNotRead) {
    KtrBuilder b = started();
    b.detection({{300, 1, 40}});
    std::string bytes = b.bytes().substr(0, 2 * 256 + 100); // N - 1 = 1.39: the last index is 1
    Side& s = loadbytes(bytes);
    EXPECT_EQ(s.rawgrid.rows() > 1100 ? s.rawgrid[1100][0] : 0, 0);
    EXPECT_EQ(s.lastposition, 800 + 400);
}

TEST_F(Walk, ADirectoryIsRefusedWithItsPath) {
    std::filesystem::create_directories(temp.path() / "dir.ktr");
    st.zhu.filepath = temp.file("dir.ktr");
    walkfile(st, st.zhu);
    EXPECT_EQ(st.zhu.samplecount, 0);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].find(temp.file("dir.ktr")), std::string::npos);
}

TEST_F(Walk, AMissingFileIsRefusedWithItsPath) {
    st.zhu.filepath = temp.file("gone.ktr");
    walkfile(st, st.zhu);
    EXPECT_EQ(st.zhu.samplecount, 0);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"无法读取文件：" + temp.file("gone.ktr")});
}

TEST_F(Walk, RandomRecordsOfEveryTypeGoThroughFirstActivation) {
    start();
    std::string bytes(256 * 600, '\0');
    std::uint32_t x = 987;
    for (char& c : bytes) {
        x = x * 1103515245 + 12345;
        c = static_cast<char>(x >> 16);
    }
    const char types[] = {0x43, 0x4D, 0x42, 0x45, 0x53, 0x57, 0x44, 0x58, 0x59, 0x4D};
    for (std::size_t r = 0; r < 600; ++r) bytes[r * 256] = types[r % 10];
    windowload(st, writefile("random.ktr", bytes));
    windowactivate(st);
    EXPECT_GT(st.zhu.samplecount, 0);
    EXPECT_EQ(st.zhu.Grid1.size(), 10u);
    EXPECT_EQ(st.zhu.Grid2[1].size(), 8u);
    EXPECT_FALSE(st.form.labels["Lzygk"].empty());
}

TEST_F(Walk, RandomBytesLoadWithoutFault) {
    std::string bytes(256 * 400, '\0');
    std::uint32_t x = 12345;
    for (char& c : bytes) {
        x = x * 1103515245 + 12345;
        c = static_cast<char>(x >> 16);
    }
    // Every record typed as one the walk decodes.
    const char types[] = {0x42, 0x43, 0x45, 0x4D, 0x53, 0x57};
    for (std::size_t r = 0; r < 400; ++r) bytes[r * 256] = types[r % 6];
    Side& s = loadbytes(bytes);
    EXPECT_LE(s.samplecount, 100000);
    EXPECT_LE(s.lastposition, 6400000);
}

TEST_F(Walk, MainPositionAboveTheLimitStopsTheLoadWithTheMessage) {
    KtrBuilder b = started();
    b.detection({{100, 1, 5}})
        .detection({{6395000 - 800, 1, 7}})
        .detection({{6395001 - 800, 1, 9}, {10, 1, 1}});
    Side& s = load(b);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0], "数据量过于庞大或数据有误!无法完整显示!6395001  6191590109");
    EXPECT_EQ(s.rawgrid[6395000][0], 7); // the limit itself still loads
    EXPECT_EQ(s.lastposition, 6395000);
    EXPECT_EQ(s.abortflag, 1);
}

TEST_F(Walk, ComparisonPositionPastItsGridStopsWithAMessageAndLeavesTheMainSide) {
    KtrBuilder main = started();
    main.detection({{100, 1, 5}});
    load(main);
    const auto mainlast = st.zhu.lastposition;
    KtrBuilder other;
    other.param().samples({Sample{}}).detection({{6000001 - 800, 1, 7}});
    st.cong.filepath = writefile("other.ktr", other.bytes());
    walkfile(st, st.cong);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].find("other.ktr"), std::string::npos);
    EXPECT_EQ(st.cong.abortflag, 1);
    EXPECT_EQ(st.zhu.lastposition, mainlast);
    EXPECT_EQ(st.zhu.rawgrid[900][0], 5);
}

TEST_F(Walk, ComparisonPathMustEndInR) {
    st.cong.filepath = writefile("other.ktx", "");
    walkfile(st, st.cong);
    EXPECT_EQ(ui.messages, std::vector<std::string>{st.cong.filepath + "有误"});
}

TEST_F(Walk, HelpersFormatAsTheStationDoes) {
    EXPECT_EQ(hexbyte(0), "00");
    EXPECT_EQ(hexbyte(-5), "00");
    EXPECT_EQ(hexbyte(10), "0A");
    EXPECT_EQ(hexbyte(300), "12C");
    EXPECT_EQ(hexlong(255), "0000FF");
    EXPECT_EQ(hexlong(0x1234567), "1234567");
    EXPECT_EQ(hexbits("A1"), "10100001");
    EXPECT_TRUE(between(5, 5, 54));
    EXPECT_TRUE(between(5, 53, 54));
    EXPECT_FALSE(between(5, 54, 54));
    EXPECT_TRUE(between(10, 7, 3));
    EXPECT_FALSE(between(4, 4, 4));
}

} // namespace
