#include "station/vbval.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using orvane::vbval;

TEST(Val, LeadingBlanksAreSkipped) {
    EXPECT_EQ(vbval("   12"), 12);
}
TEST(Val, LongestNumericPrefixCounts) {
    EXPECT_EQ(vbval("12abc"), 12);
}
TEST(Val, LeadingZerosReadAsTheSameNumber) {
    EXPECT_EQ(vbval("012"), 12);
}
TEST(Val, NoNumberGivesZero) {
    EXPECT_EQ(vbval("x"), 0);
    EXPECT_EQ(vbval(""), 0);
    EXPECT_EQ(vbval("-"), 0);
}
TEST(Val, DecimalsSignsAndExponents) {
    EXPECT_DOUBLE_EQ(vbval("-3.25"), -3.25);
    EXPECT_DOUBLE_EQ(vbval("+.5"), 0.5);
    EXPECT_DOUBLE_EQ(vbval("1.5e2x"), 150);
    EXPECT_DOUBLE_EQ(vbval("2D3"), 2000);
    EXPECT_DOUBLE_EQ(vbval("7e"), 7);
}
TEST(Val, BlanksInsideTheNumberArePassedOver) {
    EXPECT_EQ(vbval(" 1 615 198th"), 1615198);
}
TEST(Val, HexadecimalAndOctalPrefixes) {
    EXPECT_EQ(vbval("&H1F"), 31);
    EXPECT_EQ(vbval("&hff"), 255);
    EXPECT_EQ(vbval("&O17"), 15);
    EXPECT_EQ(vbval("&HFFFF"), -1); // fits 16 bits: a signed 16-bit number
    EXPECT_EQ(vbval("&H10000"), 65536);
    EXPECT_EQ(vbval("&Hxyz"), 0);
}

class ValInSql : public orvane::testkit::StationTest {};

TEST_F(ValInSql, StaffNumbersWithLeadingZerosMatchTheNumber) {
    start();
    st.gpsxdb->exec("insert into gzryb values ('012', 'x1', 'a', 'b')");
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from gzryb where val(bh)=12").number(), 2); // '12' and '012'
    EXPECT_EQ(
        st.gpsxdb->scalar("select count(*) from gzryb where val(bh)=CAST(? AS NUMERIC)", {"12"}).number(), 2);
}

TEST_F(ValInSql, NumbersThatAreNotNumbersMatchNothing) {
    start();
    st.gpsxdb->exec("insert into gzryb values ('x', 'y', 'a', 'b')");
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from gzryb where val(bh)=12 and bh='x'").number(), 0);
    EXPECT_EQ(st.gpsxdb->scalar("select val(bh) from gzryb where bh='x'").number(), 0);
}

TEST_F(ValInSql, SevenAndZeroZeroSevenCollide) {
    start();
    st.gpsxdb->exec("insert into zyqjb values ('007', 'a')");
    st.gpsxdb->exec("insert into zyqjb values ('7', 'b')");
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from zyqjb where val(bh)=val(?)", {"7"}).number(), 2);
}

TEST_F(ValInSql, NamesWithQuotesAreStoredAsTyped) {
    start();
    st.gpsxdb->exec("insert into gzryb(bh,xm,bz,gwd) values(?,?,?,?)", {"99", "O'Neil", "a", "b"});
    EXPECT_EQ(st.gpsxdb->scalar("select xm from gzryb where val(bh)=99").text, "O'Neil");
}
