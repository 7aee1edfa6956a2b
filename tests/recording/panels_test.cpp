// The parameter record and the GPS entry on the panels Grid1, Grid3 and Label2.
#include "app/startup.h"
#include "ktrbuilder.h"
#include "recording/hex.h"
#include "recording/panels.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using namespace orvane;
using testkit::KtrBuilder;
using testkit::Param;

namespace {

class Panels : public testkit::StationTest {
  protected:
    void SetUp() override {
        start();
        setpanelheads(st);
        // Lists as a walk leaves them; these tests fill element 0 by hand.
        for (Side* side : {&st.zhu, &st.cong}) {
            side->paramrec.resize(1);
            side->gpstext.resize(1);
        }
    }
    // Puts the parameter record P at element 0 of the main side and applies it.
    void apply(const Param& p, Side& side) {
        KtrBuilder b;
        b.param(p);
        side.paramrec[0] = hexof(b.records()[0].data(), 256);
        applyparam(st, side, 0);
    }
    void apply(const Param& p) { apply(p, st.zhu); }
    // A GPS text of 38 characters: position, nine integral bytes, voltage digit.
    static std::string gps(const std::string& integrals, char voltage = '7') {
        return "45461234"
               "0"
               "126381234" +
               integrals + voltage + "0";
    }
};

TEST_F(Panels, GainByteOf160ShowsZeroAndOfZeroMinusEighty) {
    EXPECT_EQ(gaintext(160), "0.0");
    EXPECT_EQ(gaintext(0), "-80.0");
    EXPECT_EQ(gaintext(255), "47.5");
    Param p;
    p.gains = {160, 0, 161, 160, 160, 160, 160, 160, 200};
    apply(p);
    EXPECT_EQ(st.zhu.Grid1[1][1], "0.0");
    EXPECT_EQ(st.zhu.Grid1[2][1], "-80.0");
    EXPECT_EQ(st.zhu.Grid1[3][1], "0.5");
    EXPECT_EQ(st.zhu.Grid1[9][1], "20.0");
}

TEST_F(Panels, AlignmentWordFFFFIsMinusOne) {
    Param p;
    p.words[2] = 0xFFFF;
    p.words[3] = 0x0102;
    apply(p);
    EXPECT_EQ(st.zhu.pinkongval[2], -1);
    EXPECT_EQ(st.zhu.pinkongval[3], 258);
}

TEST_F(Panels, RowOfTablePinkongOutranksTheRecordsWords) {
    st.pinkonghit = 1;
    st.zhu.pinkongval[0] = 17;
    Param p;
    p.words[0] = 5;
    apply(p);
    EXPECT_EQ(st.zhu.pinkongval[0], 17);
}

TEST_F(Panels, RailCodeOutsideOneToFourKeepsTheEarlierOne) {
    Param p;
    p.rail = 2;
    apply(p);
    EXPECT_EQ(st.zhu.railcode, "50");
    p.rail = 7;
    apply(p);
    EXPECT_EQ(st.zhu.railcode, "50");
    EXPECT_EQ(st.zhu.Grid3[1][4], "50");
    p.rail = 0x14; // only the low digit counts
    apply(p);
    EXPECT_EQ(st.zhu.railcode, "75");
}

TEST_F(Panels, EveryRailCodeHasItsWeight) {
    const char* weights[] = {"43", "50", "60", "75"};
    Param p;
    for (int code = 1; code <= 4; ++code) {
        p.rail = static_cast<std::uint8_t>(code);
        apply(p);
        EXPECT_EQ(st.zhu.railcode, weights[code - 1]);
    }
}

TEST_F(Panels, EnglishRailColumnShowsFortyEightAndFiftySeven) {
    st.language = "english";
    Param p;
    p.rail = 1;
    apply(p);
    EXPECT_EQ(st.zhu.railcode, "43");
    EXPECT_EQ(st.zhu.Grid3[1][4], "48");
    p.rail = 2;
    apply(p);
    EXPECT_EQ(st.zhu.Grid3[1][4], "57");
    p.rail = 3;
    apply(p);
    EXPECT_EQ(st.zhu.Grid3[1][4], "60");
}

TEST_F(Panels, RailOverrideFortyFiveShowsSeventyFiveAsFortyFive) {
    st.railoverride = "45";
    Param p;
    p.rail = 4;
    apply(p);
    EXPECT_EQ(st.zhu.railcode, "75");
    EXPECT_EQ(st.zhu.Grid3[1][4], "45");
}

TEST_F(Panels, RailIsRedrawnOnlyWhenItsCodeChanges) {
    int redraws = 0;
    st.hooks.redrawrail = [&](Station&) { ++redraws; };
    Param p;
    apply(p);
    apply(p);
    EXPECT_EQ(redraws, 1);
    p.rail = 1;
    apply(p);
    EXPECT_EQ(redraws, 2);
    apply(p, st.cong); // the comparison side has no rail picture of its own
    EXPECT_EQ(redraws, 2);
}

TEST_F(Panels, ChannelLabelsOfEveryKind) {
    EXPECT_EQ(channellabel(0x00, "右手"), " 0⊕");
    EXPECT_EQ(channellabel(0x25, "右手"), "前");
    EXPECT_EQ(channellabel(0x26, "右手"), "后");
    EXPECT_EQ(channellabel(0x46, "右手"), "后");
    EXPECT_EQ(channellabel(0x47, "右手"), "前");
    EXPECT_EQ(channellabel(0x48, "右手"), "后内");
    EXPECT_EQ(channellabel(0x49, "右手"), "前内");
    EXPECT_EQ(channellabel(0x4A, "右手"), "后外");
    EXPECT_EQ(channellabel(0x4B, "右手"), "前外");
    EXPECT_EQ(channellabel(0x4C, "右手"), "后左");
    EXPECT_EQ(channellabel(0x4D, "右手"), "前左");
    EXPECT_EQ(channellabel(0x4E, "右手"), "后右");
    EXPECT_EQ(channellabel(0x4F, "右手"), "前右");
    EXPECT_EQ(channellabel(0xFF, "右手"), " ");
    for (int kind : {0x0B, 0x0C, 0x0D, 0x12, 0x13, 0x2D, 0x2E, 0x44, 0x45})
        EXPECT_EQ(channellabel(kind, "右手"), "");
}

TEST_F(Panels, LeftHandSwapsInnerAndOuterLabels) {
    EXPECT_EQ(channellabel(0x48, "左手"), "后外");
    EXPECT_EQ(channellabel(0x49, "左手"), "前外");
    EXPECT_EQ(channellabel(0x4A, "左手"), "后内");
    EXPECT_EQ(channellabel(0x4B, "左手"), "前内");
    EXPECT_EQ(channellabel(0x4C, "左手"), "后左");
}

TEST_F(Panels, Grid1ShowsLetterAndLabelAndEnglishOnlyTheLetter) {
    st.trackside = "右手";
    apply(Param{});
    const char* expected[] = {"A前", "B后", "C前内", "D后内", "E前外", "F后外", "G前", "H后", "I 0⊕"};
    for (int k = 0; k < 9; ++k) EXPECT_EQ(st.zhu.Grid1[k + 1][0], expected[k]) << k;
    st.language = "english";
    apply(Param{});
    EXPECT_EQ(st.zhu.Grid1[3][0], "C");
}

TEST_F(Panels, Grid3ShowsAlarmSwitchesRailAndSuppression) {
    Param p;
    p.alarms = 0xF1; // only the low digit is read: bit 0 set, bit 1 clear
    p.suppression = 0;
    apply(p);
    const std::vector<std::string> row = {"开", "关", "开", "手动", "60", "通常", ""};
    EXPECT_EQ(st.zhu.Grid3[1], row);
    EXPECT_EQ(st.zhu.Grid3[0][0], "反射报警");
    p.alarms = 0x02;
    p.suppression = 3;
    apply(p);
    EXPECT_EQ(st.zhu.Grid3[1][0], "关");
    EXPECT_EQ(st.zhu.Grid3[1][1], "开");
    EXPECT_EQ(st.zhu.Grid3[1][5], "抑制");
}

TEST_F(Panels, Grid3InEnglish) {
    st.language = "english";
    setpanelheads(st);
    Param p;
    p.alarms = 0x03;
    p.suppression = 1;
    apply(p);
    const std::vector<std::string> row = {"on", "on", "on", "hand", "60", "on", ""};
    EXPECT_EQ(st.zhu.Grid3[1], row);
    EXPECT_EQ(st.zhu.Grid3[0][6], "Batt");
    EXPECT_EQ(st.zhu.Grid1[0][0], "Channel");
}

TEST_F(Panels, TarvikModeExchangesChannelsEAndF) {
    apply(Param{});
    EXPECT_EQ(st.zhu.channelkind[4], "4B");
    st.tarvikmode = "tarvik";
    apply(Param{});
    EXPECT_EQ(st.zhu.channelkind[4], "4A");
    EXPECT_EQ(st.zhu.channelkind[5], "4B");
}

TEST_F(Panels, IntegralColumnsFollowTheSetting) {
    EXPECT_EQ(st.zhu.Grid1[0].size(), 2u);
    st.settings.integralshown = 1;
    setpanelheads(st);
    const std::vector<std::string> heads = {"通道号", "增益值", "积分值", "草状波%"};
    EXPECT_EQ(st.zhu.Grid1[0], heads);
    const std::vector<std::string> twin = {"通道号", "增益值", "积分值"};
    EXPECT_EQ(st.cong.Grid1[0], twin);
}

TEST_F(Panels, GpsEntryFillsIntegralValuesAndLevels) {
    st.settings.integralshown = 1;
    setpanelheads(st);
    // A..I: 49, 50, 60, 80, 120, 135, G 37, H 38, I 250
    st.zhu.gpstext[0] = gps("31323C5078872526FA");
    showgpsentry(st, st.zhu, 0);
    const char* values[] = {"49", "50", "60", "80", "120", "135", "37", "38", "250"};
    const char* levels[] = {"<5", "5", "10", "15", "20", "25", "<5", "5", "40"};
    for (int k = 0; k < 9; ++k) {
        EXPECT_EQ(st.zhu.Grid1[k + 1][2], values[k]) << k;
        EXPECT_EQ(st.zhu.Grid1[k + 1][3], levels[k]) << k;
    }
    EXPECT_EQ(st.zhu.Grid3[1][6], "7V");
}

TEST_F(Panels, LevelBandsOfTheUsualChannels) {
    const std::pair<int, const char*> bands[] = {{0, "<5"},   {49, "<5"},  {50, "5"},   {59, "5"},
                                                 {60, "10"},  {79, "10"},  {80, "15"},  {119, "15"},
                                                 {120, "20"}, {134, "20"}, {135, "25"}, {219, "25"},
                                                 {220, "30"}, {249, "30"}, {250, "40"}, {255, "40"}};
    for (auto [b, text] : bands) EXPECT_EQ(integrallevel(0, b), text) << b;
}

TEST_F(Panels, LevelBandsOfTheLateWaveChannelsGAndH) {
    const std::pair<int, const char*> bands[] = {
        {37, "<5"}, {38, "5"},  {44, "5"},  {45, "10"},  {52, "10"},  {53, "15"},  {57, "15"},
        {58, "20"}, {67, "20"}, {68, "25"}, {159, "25"}, {160, "30"}, {249, "30"}, {250, "40"}};
    for (int k : {6, 7})
        for (auto [b, text] : bands) EXPECT_EQ(integrallevel(k, b), text) << k << " " << b;
}

TEST_F(Panels, GpsEntryWithoutIntegralColumnsLeavesGrid1) {
    st.zhu.gpstext[0] = gps("FFFFFFFFFFFFFFFFFF");
    showgpsentry(st, st.zhu, 0);
    EXPECT_EQ(st.zhu.Grid1[1].size(), 2u);
    EXPECT_EQ(st.zhu.Grid1[1][0], "");
    EXPECT_EQ(st.zhu.Grid3[1][6], "7V");
}

TEST_F(Panels, GpsPositionInLabel2) {
    st.zhu.gpstext[0] = gps("000000000000000000");
    showgpsentry(st, st.zhu, 0);
    EXPECT_EQ(st.form.labels["Label2_8"], "经度126°38′1234″");
    EXPECT_EQ(st.form.labels["Label2_9"], "纬度 45°46′1234″");
    st.language = "english";
    showgpsentry(st, st.zhu, 0);
    EXPECT_EQ(st.form.labels["Label2_8"], "E 126°38'1234\"");
    EXPECT_EQ(st.form.labels["Label2_9"], "N 45°46'1234\"");
}

TEST_F(Panels, UnpairedGpsHalfShowsWithoutFault) {
    st.zhu.gpstext[0] = "454612340126381234"; // the first half only
    showgpsentry(st, st.zhu, 0);
    EXPECT_EQ(st.zhu.Grid3[1][6], "V");
    EXPECT_EQ(st.form.labels["Label2_9"], "纬度 45°46′1234″");
}

} // namespace
