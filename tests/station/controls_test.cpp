// The table of controls: one entry per control, one error for a name that no window has, and the
// rules by which a control takes the user's acts.
#include "bmode/alignment.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Controls : public testkit::ViewTest {
  protected:
    void SetUp() override {
        start();
        prepareview(60000);
        st.settings.manualstep = 500;
    }
    std::string row(const std::string& key, const std::string& field) {
        return st.colordb->scalar("select " + field + " from color where weizhi=?", {key}).astext();
    }
};

TEST_F(Controls, EveryControlHasOneEntryUnderItsName) {
    for (const char* name : {"Check1",         "Check7",
                             "Check16",        "Check17",
                             "Check8",         "Check9",
                             "Check15",        "Check18",
                             "Check19",        "Option1",
                             "Option10",       "Option11",
                             "Option12",       "Option13",
                             "Option21",       "Command36",
                             "Command18",      "Command3",
                             "HScrolljd",      "HScroll8",
                             "Text1",          "Text2",
                             "Text3",          "Tmc",
                             "Tgwd",           "Txb",
                             "Textdyrq",       "Ttda",
                             "Ttdi",           "Picture1",
                             "Picture6",       "aqd",
                             "Formpk2.Cmdbc",  "Formpk2.HScroll8",
                             "Formpk2.Option2"})
        EXPECT_NE(st.controls.find(name), nullptr) << name;
    EXPECT_THROW(st.controls.add(control("Check1", ControlKind::checkbox)), std::logic_error);
}

TEST_F(Controls, UnknownNameIsOneErrorWhateverTheAct) {
    EXPECT_THROW(press(st, "Command999"), ControlError);
    EXPECT_THROW(setcontrol(st, "Check99", "1"), ControlError);
    EXPECT_THROW(scroll(st, "HScroll99", 1), ControlError);
    EXPECT_THROW(enter(st, "Text99", "1"), ControlError);
    EXPECT_THROW(mouse(st, "Picture99", {"down", "left", 1, 1}), ControlError);
    EXPECT_THROW(closeform(st, "Form99"), ControlError);
}

TEST_F(Controls, AControlOfAClosedWindowIsRefusedAndNothingChanges) {
    const auto words = s.pinkongval;
    EXPECT_THROW(press(st, "Formpk2.Cmdbc"), ControlClosed);
    EXPECT_THROW(setcontrol(st, "Formpk2.HScroll1", "5"), ControlClosed);
    EXPECT_THROW(closeform(st, "Formpk2"), ControlClosed);
    EXPECT_EQ(s.pinkongval, words);
    EXPECT_EQ(st.gpsxdb->scalar("select count(*) from pinkong").number(), 0);
}

TEST_F(Controls, ScrollBarRefusesAValueOutOfItsRangeOrNotANumber) {
    EXPECT_THROW(setcontrol(st, "HScroll8", "10"), ControlError);
    EXPECT_THROW(setcontrol(st, "HScroll8", "0"), ControlError);
    EXPECT_THROW(setcontrol(st, "HScroll8", "fast"), ControlError);
    EXPECT_THROW(setcontrol(st, "HScroll8", "3.5"), ControlError);
    EXPECT_THROW(scroll(st, "HScrolljd", s.scrollmax + 1), ControlError);
    EXPECT_EQ(row("bofsd", "shuzhi"), "5"); // the seeded speed stays
    EXPECT_EQ(s.viewindex, 600);
    setcontrol(st, "HScroll8", "9");
    EXPECT_EQ(row("bofsd", "shuzhi"), "9");
}

TEST_F(Controls, CheckBoxTakesZeroOrOneAndClicksOnlyOnAChange) {
    setcontrol(st, "Check1", "1"); // already shown: nothing
    EXPECT_TRUE(st.form.channelshown[0]);
    setcontrol(st, "Check1", "0");
    EXPECT_FALSE(st.form.channelshown[0]);
    setcontrol(st, "Check1", "0");
    EXPECT_FALSE(st.form.channelshown[0]);
    EXPECT_THROW(setcontrol(st, "Check1", "2"), ControlError);
    EXPECT_THROW(setcontrol(st, "Check1", "yes"), ControlError);
}

TEST_F(Controls, AnOptionIsNeverUnsetByAValueOfZero) {
    ASSERT_EQ(reach(st, "Option17").value(st), 1); // the view's whole-file map
    setcontrol(st, "Option17", "0");
    EXPECT_EQ(st.settings.wholefile, 1);
    setcontrol(st, "Option16", "1");
    EXPECT_EQ(st.settings.wholefile, 0);
    EXPECT_EQ(reach(st, "Option16").value(st), 1);
    EXPECT_EQ(reach(st, "Option17").value(st), 0);
}

TEST_F(Controls, ADisabledOrHiddenControlTakesNoAct) {
    st.form.mainviewenabled = false; // no recording loaded
    press(st, "Command8");
    EXPECT_FALSE(st.T1);
    st.form.mainviewenabled = true;
    press(st, "Command37"); // the comparison's step key is hidden without a comparison
    EXPECT_EQ(c.viewindex, 600);
    EXPECT_FALSE(reach(st, "Command37").isvisible(st));
}

TEST_F(Controls, ButtonsAndBoxesThatTakeNoValueRefuseOne) {
    EXPECT_THROW(setcontrol(st, "Command8", "1"), ControlError);
    EXPECT_THROW(enter(st, "Command8", "1"), ControlError);
    EXPECT_THROW(clickrow(st, "Command8", 1), ControlError);
    EXPECT_THROW(mouse(st, "Picture1", {"drag", "left", 1, 1}), ControlError);
}

TEST_F(Controls, CaptionIsTheStationsOrElseTheBuiltOne) {
    EXPECT_EQ(controlcaption(st, reach(st, "Command3")), "拼  孔");
    st.form.captions["Command3"] = "Shift";
    EXPECT_EQ(controlcaption(st, reach(st, "Command3")), "Shift");
}

TEST_F(Controls, OpenWindowsListTheMainWindowFirst) {
    EXPECT_EQ(openforms(st), std::vector<std::string>{"Form28"});
    press(st, "Command3");
    EXPECT_EQ(openforms(st), (std::vector<std::string>{"Form28", "Formpk2"}));
    closeform(st, "Formpk2");
    EXPECT_FALSE(st.alignment.open);
}

TEST_F(Controls, FilterCheckBoxDisablesItsBoxAtZeroAndEnablesItKeepingTheText) {
    setcontrol(st, "Ttdc", "40");
    press(st, "Check11");
    EXPECT_FALSE(st.form.filterchecked[2]);
    EXPECT_EQ(st.form.filtertext[2], "0");
    EXPECT_FALSE(reach(st, "Ttdc").isenabled(st));
    setcontrol(st, "Ttdc", "99"); // a disabled box takes no text
    EXPECT_EQ(st.form.filtertext[2], "0");
    press(st, "Check11");
    EXPECT_TRUE(st.form.filterchecked[2]);
    EXPECT_EQ(st.form.filtertext[2], "0"); // stays at 0 until the user types a number
    EXPECT_TRUE(reach(st, "Ttdc").isenabled(st));
}

TEST_F(Controls, SetAsDefaultWritesExactlyTheNineFilterFields) {
    const char* boxes[9] = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde", "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
    for (int k = 0; k < 9; ++k) setcontrol(st, boxes[k], std::to_string(11 * (k + 1)));
    auto dump = [&] {
        std::vector<std::string> cells;
        for (const DbRow& r : st.colordb->rows("select * from color order by weizhi"))
            for (const DbValue& v : r) cells.push_back(v.astext());
        return cells;
    };
    const auto before = dump();
    press(st, "Command36");
    const auto after = dump();
    ASSERT_EQ(before.size(), after.size());
    int changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i) changed += before[i] != after[i];
    EXPECT_EQ(changed, 9);
    const std::pair<const char*, const char*> fields[] = {
        {"shuzhi", "88"}, {"shuzhibf", "99"}, {"apy", "11"}, {"bpy", "22"}, {"cpy", "33"},
        {"dpy", "44"},    {"epy", "55"},      {"fpy", "66"}, {"gpy", "77"}};
    for (const auto& [field, text] : fields) EXPECT_EQ(row("guolv", field), text) << field;
}

} // namespace
