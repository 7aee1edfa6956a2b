// The alignment window of the main side's channels.
#include "bmode/alignment.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Alignment : public testkit::ViewTest {
  protected:
    using Words = std::array<std::int16_t, 9>;
    void SetUp() override {
        start();
        prepareview(5000);
        st.machineno = "51207";
        st.replaystep = 7;
        s.pinkongval = {3, -3, 2, -2, 4, -4, 1, -1, 5};
    }
};

TEST_F(Alignment, OpeningStopsTheStepAndClosingKeepsTheTunedWords) {
    openalignment(st);
    EXPECT_TRUE(st.alignment.open);
    EXPECT_EQ(st.replaystep, 0);
    EXPECT_TRUE(st.T1);
    movealignment(st, 0, 10);
    movealignment(st, 7, -250); // the bar stops at -200
    EXPECT_EQ(s.pinkongval[0], 13);
    EXPECT_EQ(s.pinkongval[7], -201);
    movealignment(st, 0, 0);
    EXPECT_EQ(s.pinkongval[0], 3); // the bar tells a change against the words at the opening
    closealignment(st);
    EXPECT_FALSE(st.alignment.open);
    EXPECT_EQ(st.replaystep, 7);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.pinkonghit, 1);
}

TEST_F(Alignment, ExactThenAlignedRestoresTheWordsExactly) {
    const Words before = s.pinkongval;
    openalignment(st);
    alignmentmode(st, true);
    EXPECT_EQ(s.pinkongval, Words{});
    EXPECT_FALSE(st.alignment.open); // a mode button closes the window
    openalignment(st);
    alignmentmode(st, false);
    EXPECT_EQ(s.pinkongval, before);
}

TEST_F(Alignment, AlignedWhileWordsAreInForceLeavesThem) {
    const Words before = s.pinkongval;
    st.pinkongkeep = {9, 9, 9, 9, 9, 9, 9, 9, 9};
    openalignment(st);
    alignmentmode(st, false);
    EXPECT_EQ(s.pinkongval, before);
}

TEST_F(Alignment, ChannelIWithoutAWordCountsAsExactAndKeepsNothing) {
    s.pinkongval = {3, -3, 2, -2, 4, -4, 1, -1, 0};
    st.pinkongkeep = {7, 7, 7, 7, 7, 7, 7, 7, 7};
    openalignment(st);
    alignmentmode(st, true);
    EXPECT_EQ(s.pinkongval, Words{});
    EXPECT_EQ(st.pinkongkeep, (Words{7, 7, 7, 7, 7, 7, 7, 7, 7}));
}

TEST_F(Alignment, SavingAfterExactStoresZerosForEightChannels) {
    openalignment(st);
    alignmentmode(st, true);
    savealignment(st);
    const auto rows =
        st.gpsxdb->rows("select apk, bpk, cpk, dpk, epk, fpk, gpk, hpk from pinkong where jqbh=?", {"51207"});
    ASSERT_EQ(rows.size(), 1u);
    for (const DbValue& v : rows[0]) EXPECT_EQ(v.number(), 0);
}

TEST_F(Alignment, SavingWritesTheWordsOfAToHAndDeletingRemovesTheRow) {
    savealignment(st);
    savealignment(st); // a second save updates the same row
    const auto rows = st.gpsxdb->rows("select apk, hpk from pinkong where jqbh=?", {"51207"});
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].number(), 3);
    EXPECT_EQ(rows[0][1].number(), -1);
    deletealignment(st);
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from pinkong where jqbh=?", {"51207"}).number(), 0);
}

} // namespace

namespace {

// The comparison side's alignment: only tried, never stored, and drawn on its own picture.
class ComparisonAlignment : public Alignment {
  protected:
    void SetUp() override {
        Alignment::SetUp();
        preparecomparison(5000);
        c.pinkongval = {10, 20, 30, 40, 50, 60, 70, 80, 90};
    }
};

TEST_F(ComparisonAlignment, Command18TunesTheComparisonWordsAndRedrawsItsPicture) {
    const Words main = s.pinkongval;
    press(st, "Command18");
    ASSERT_TRUE(st.alignment.open);
    EXPECT_TRUE(st.alignment.comparison);
    EXPECT_EQ(st.playside, "cong");
    EXPECT_EQ(st.replaystep, 0);
    EXPECT_EQ(c.pinkongbase, (std::array<std::int16_t, 8>{10, 20, 30, 40, 50, 60, 70, 80}));
    scroll(st, "Formpk2.HScroll1", 15);
    scroll(st, "Formpk2.HScroll8", -200);
    EXPECT_EQ(c.pinkongval[0], 25);
    EXPECT_EQ(c.pinkongval[7], -120);
    EXPECT_EQ(reach(st, "Formpk2.HScroll1").value(st), 15);
    EXPECT_EQ(s.pinkongval, main);
    // The modes and the row of the instrument are not offered for the comparison side.
    EXPECT_FALSE(reach(st, "Formpk2.Option1").isvisible(st));
    EXPECT_FALSE(reach(st, "Formpk2.Cmdbc").isenabled(st));
    press(st, "Formpk2.Cmdbc");
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from pinkong").number(), 0);
    canvasdb.ops.clear();
    closeform(st, "Formpk2");
    EXPECT_FALSE(st.alignment.open);
    EXPECT_EQ(st.replaystep, 7);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.pinkonghit, 1);
    EXPECT_FALSE(canvasdb.ops.empty()); // bofangdb drew the comparison with its tuned words
    EXPECT_EQ(c.pinkongval[0], 25);
}

TEST_F(ComparisonAlignment, Command18IsHiddenWithoutAComparison) {
    st.form.comparisonvisible = false;
    press(st, "Command18");
    EXPECT_FALSE(st.alignment.open);
}

TEST_F(ComparisonAlignment, BarOutsideItsRangeIsRefused) {
    press(st, "Command18");
    EXPECT_THROW(scroll(st, "Formpk2.HScroll1", 201), ControlError);
    EXPECT_EQ(c.pinkongval[0], 10);
}

} // namespace
