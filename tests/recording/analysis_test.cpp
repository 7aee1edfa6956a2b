// Reading back an earlier analysis: marks, sessions and the analyst's name.
#include "ktrbuilder.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using namespace orvane;
using testkit::AnalysisMark;
using testkit::KtrBuilder;
using testkit::Sample;

namespace {

class Analysis : public testkit::StationTest {
  protected:
    Side& load(KtrBuilder& b, Side& side, const std::string& name = "run.ktr") {
        return walkrecording(b.bytes(), side, name);
    }
    Side& load(KtrBuilder& b) { return load(b, st.zhu); }
    static KtrBuilder started() {
        KtrBuilder b;
        b.param().samples({Sample{}});
        return b;
    }
};

TEST_F(Analysis, MarksKeepPositionAndTextOfEachEntry) {
    KtrBuilder b = started();
    b.analysis({AnalysisMark{.position = 0x012345, .code = 3}, AnalysisMark{.position = 900, .code = 8}});
    load(b);
    ASSERT_EQ(st.analysiscount, 2);
    EXPECT_EQ(st.analysispos[0], 0x012345);
    EXPECT_EQ(st.analysislist[0], "0320261122101500");
    EXPECT_EQ(st.analysispos[1], 900);
    EXPECT_EQ(st.analysislist[1], "0820261122101500");
}

TEST_F(Analysis, EmptyMarkRecordStopsAtOnceAndChangesNothing) {
    KtrBuilder b = started();
    b.analysis({});
    load(b);
    EXPECT_EQ(st.analysiscount, 0);
    EXPECT_EQ(st.analysislist[0], "");
}

TEST_F(Analysis, MarksBeyondElement999AreDroppedSilently) {
    KtrBuilder b = started();
    std::vector<AnalysisMark> twenty;
    for (int i = 0; i < 20; ++i) twenty.push_back({.position = 1000 + i, .code = 1});
    for (int r = 0; r < 51; ++r) b.analysis(twenty); // 1020 entries
    load(b);
    EXPECT_EQ(st.analysiscount, 1000);
    EXPECT_EQ(st.analysispos[999], 1019);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Analysis, SessionKeepsPositionDateStartAndEnd) {
    KtrBuilder b = started();
    b.analyst(0x0A0B0C, "20261122", "083000", "101512");
    load(b);
    ASSERT_EQ(st.analystcount, 1);
    const std::string& e = st.analystlist[0];
    EXPECT_EQ(e, "0A0B0C20261122083000101512");
    EXPECT_EQ(e.substr(6, 8), "20261122"); // the date at char 7
    EXPECT_EQ(e.substr(14, 6), "083000");  // the start at char 15
    EXPECT_EQ(e.substr(20, 6), "101512");  // the end at char 21
}

TEST_F(Analysis, SessionsStopAtACountOfAThousand) {
    KtrBuilder b = started();
    for (int i = 0; i < 1003; ++i) b.analyst(i, "20261122", "083000", "101512");
    load(b);
    EXPECT_EQ(st.analystcount, 1000);
    EXPECT_EQ(st.analystlist[999].substr(0, 6), "0003E7");
}

TEST_F(Analysis, NameIsReadFromCodePageUnits) {
    KtrBuilder b = started();
    b.analystname({0xD5C5, 0xC8FD, 0x0041}); // 张 三 A
    load(b);
    EXPECT_EQ(st.form.Tmc, "张三A");
    EXPECT_EQ(st.analystname, "分析员：张三A");
}

TEST_F(Analysis, NameOfFortyOneCharactersIsReadWhole) {
    std::vector<std::uint16_t> units;
    for (int i = 0; i < 41; ++i) units.push_back(static_cast<std::uint16_t>('a' + i % 26));
    units.push_back('X'); // beyond char 166: not read
    KtrBuilder b = started();
    b.analystname(units);
    load(b);
    std::string expected;
    for (int i = 0; i < 41; ++i) expected += static_cast<char>('a' + i % 26);
    EXPECT_EQ(st.form.Tmc, expected);
    EXPECT_EQ(st.form.Tmc.size(), 41u);
}

TEST_F(Analysis, UndecodableUnitShowsAQuestionMark) {
    KtrBuilder b = started();
    b.analystname({0xFFFF, 0x0042});
    load(b);
    EXPECT_EQ(st.form.Tmc, "?B");
}

TEST_F(Analysis, ComparisonSideDoesNotReadAnalysis) {
    KtrBuilder b = started();
    b.analysis({AnalysisMark{.position = 5, .code = 1}}).analyst(1, "20261122", "083000", "101512");
    b.analystname({0x0041});
    load(b, st.cong, "other.ktR");
    EXPECT_EQ(st.cong.samplecount, 1);
    EXPECT_EQ(st.analysiscount, 0);
    EXPECT_EQ(st.analystcount, 0);
    EXPECT_EQ(st.form.Tmc, "");
}

} // namespace
