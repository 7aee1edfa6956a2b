// Samples and GPS entries.
#include "ktrbuilder.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using namespace orvane;
using testkit::KtrBuilder;
using testkit::Param;
using testkit::Sample;

namespace {

class Samples : public testkit::StationTest {
  protected:
    Side& walk(const KtrBuilder& b) { return walkrecording(b.bytes(), st.zhu); }
};

TEST_F(Samples, ClockMileageAndSpeedAreKept) {
    KtrBuilder b;
    b.param().samples(
        {Sample{.hour = 14, .minute = 5, .second = 9, .km = 1234, .metres = 567, .speed = 0x32, .step = 40}});
    Side& s = walk(b);
    EXPECT_EQ(s.samplecount, 1);
    EXPECT_EQ(s.samplepos[0], 0); // element 0 is set to 0 after the walk
    EXPECT_EQ(s.sampleclock[0], "14050912345670");
    EXPECT_FLOAT_EQ(s.samplespeed[0], 3.2f);
    EXPECT_EQ(s.speedhex[0], "32");
    EXPECT_EQ(s.mileage[840][0], static_cast<float>(1234.567));
}

TEST_F(Samples, SpeedDigitsWithALetterEndAtTheLetter) {
    KtrBuilder b;
    b.param().samples({Sample{.speed = 0x9A}});
    EXPECT_EQ(walk(b).samplespeed[0], static_cast<float>(9 * 0.1));
}

TEST_F(Samples, OtherBuildsScaleTheSpeed) {
    st.buildvariant = "longxi";
    KtrBuilder b;
    b.param().samples({Sample{.speed = 0x40}});
    // 4.0 * 0.7 = 2.8, above 2.0 so / 1.6 = 1.75, below 2.0 so kept.
    EXPECT_FLOAT_EQ(walk(b).samplespeed[0], 1.75f);
}

TEST_F(Samples, GpsEntryBeforeAnySampleEndsTheRecord) {
    KtrBuilder b;
    b.param().sampleentries(
        {KtrBuilder::gpsfirst("451230001261234500"), KtrBuilder::sampleentry(Sample{.step = 5})});
    Side& s = walk(b);
    EXPECT_EQ(s.samplecount, 0);
    EXPECT_EQ(s.gpscount, 0);
}

TEST_F(Samples, GpsPairIsJoinedAndTakesThePositionOfTheNewestSample) {
    KtrBuilder b;
    b.param(Param{.suppression = 1});
    b.sampleentries({KtrBuilder::sampleentry(Sample{.step = 70}), KtrBuilder::gpsfirst("451230001261234500"),
                     KtrBuilder::gpssecond("1122334455667788993A")});
    Side& s = walk(b);
    ASSERT_EQ(s.gpscount, 1);
    EXPECT_EQ(s.gpstext[0], "451230001261234500"
                            "1122334455667788993A");
    EXPECT_EQ(s.gpspos[0], 0); // element 0 is set to 0 after the walk
    EXPECT_EQ(s.gpspos[1], s.lastposition);
    EXPECT_TRUE(s.suppressionon[0]);
}

TEST_F(Samples, SuppressionFollowsTheParameterRecordInForce) {
    KtrBuilder b;
    b.param(Param{.suppression = 0});
    b.sampleentries({KtrBuilder::sampleentry(Sample{.step = 70}), KtrBuilder::gpsfirst("00"),
                     KtrBuilder::gpssecond("00")});
    b.param(Param{.step = 100, .suppression = 2});
    b.sampleentries({KtrBuilder::sampleentry(Sample{.step = 150}), KtrBuilder::gpsfirst("00"),
                     KtrBuilder::gpssecond("00")});
    Side& s = walk(b);
    ASSERT_EQ(s.gpscount, 2);
    EXPECT_FALSE(s.suppressionon[0]);
    EXPECT_TRUE(s.suppressionon[1]);
}

TEST_F(Samples, UnpairedGpsHalfIsOverwrittenByTheNextOne) {
    KtrBuilder b;
    b.param();
    b.sampleentries(
        {KtrBuilder::sampleentry(Sample{.step = 10}), KtrBuilder::gpsfirst("111111111111111111")});
    b.sampleentries({KtrBuilder::sampleentry(Sample{.step = 20}), KtrBuilder::gpsfirst("222222222222222222"),
                     KtrBuilder::gpssecond("33333333333333333333")});
    Side& s = walk(b);
    EXPECT_EQ(s.gpscount, 1);
    EXPECT_EQ(s.gpstext[0], "222222222222222222"
                            "33333333333333333333");
}

TEST_F(Samples, SamplePositionAboveTheLimitStopsTheLoad) {
    KtrBuilder b;
    b.param().samples({Sample{.step = 6395001 - 800}});
    Side& s = walk(b);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0], "数据量过于庞大或数据有误!无法完整显示!  0830000123456025619159");
    EXPECT_EQ(s.samplecount, 0);
}

} // namespace
