#include "app/tips.h"

#include "app/desk.h"
#include "station/station.h"

#include <map>
#include <utility>

namespace orvane {

namespace {

using Tip = std::pair<const char*, const char*>; // Chinese, English

const std::map<std::string, Tip>& tips() {
    static const std::map<std::string, Tip> table = {
        {"Commandopen",
         {"打开另一个探伤记录（Ctrl+O），当前分析记录先保存", "Open another recording (Ctrl+O)"}},
        {"Command8", {"连续播放或暂停（空格键）", "Play or pause (Space)"}},
        {"Command34", {"向前步进一个手动步进值（→ 或滚轮向下）", "Step forward (Right or wheel down)"}},
        {"Command27", {"向后步退一个手动步进值（← 或滚轮向上）", "Step back (Left or wheel up)"}},
        {"Command25", {"播放方向：正向", "Play forward"}},
        {"Command26", {"播放方向：反向", "Play backward"}},
        {"Command3", {"打开通道拼孔调整窗口", "Align the channels"}},
        {"Command21", {"左键局部放大，右键打开放大镜", "Enlarge; right button: magnifier"}},
        {"Command17", {"打开或关闭对比文件", "Open or close a comparison"}},
        {"HScrolljd", {"播放进度：拖动跳到文件中的位置", "Position in the recording"}},
        {"HScroll8", {"B显播放速度，1最慢，9最快", "Replay speed, 1 slowest to 9 fastest"}},
        {"HScroll7", {"B显回波点的大小（像素）", "Size of the echo dots (pixels)"}},
        {"HScroll3", {"每次步进、步退移动的点数", "View indices per hand step"}},
        {"HScroll10", {"底波丢失超过此长度（点数）才报告", "Shortest reported loss of the bottom echo"}},
        {"HScroll1", {"A显播放速度", "A-mode replay speed"}},
        {"HScroll9", {"拖动选择A显的扫描列", "The A-mode's scan column"}},
        {"HScroll2", {"伤损标注左右移动", "Move the defect note across"}},
        {"VScroll1", {"伤损标注上下移动", "Move the defect note up and down"}},
        {"Text1",
         {"输入里程（如 0005.350）后回车跳到该处（Ctrl+G）", "Kilometre to seek, then Enter (Ctrl+G)"}},
        {"Text2", {"对比文件：输入里程后回车跳到该处", "Comparison: kilometre to seek"}},
        {"Label20", {"左键查找里程，右键依次查找相同里程点", "Seek the kilometre; right: next place"}},
        {"Label21", {"对比文件查找里程", "Seek on the comparison"}},
        {"Check8", {"显示或隐藏全部通道", "Show or hide every channel"}},
        {"Combjs", {"选择B显背景色", "Background colour"}},
        {"Comcc", {"选择窗口颜色", "Window colour"}},
        {"Command13", {"选择辅助线颜色", "Guide line colour"}},
        {"Command40", {"黑色背景的配色", "Black scheme"}},
        {"Command41", {"浅黄背景的配色", "Light yellow scheme"}},
        {"Commandmr",
         {"把全部颜色和显示设置恢复为出厂默认值", "Every colour and display setting back to default"}},
        {"Command2", {"按各通道阈值过滤短回波", "Filter short echo runs"}},
        {"Command14", {"取消过滤，恢复原始回波", "Undo the filter"}},
        {"Command36", {"把当前阈值设为默认", "Keep these thresholds as default"}},
        {"Command18", {"对比文件的通道拼孔", "Align the comparison's channels"}},
        {"Command20", {"显示对比文件的详细参数", "The comparison's parameters"}},
        {"Command37", {"对比文件向前步进", "Comparison: step forward"}},
        {"Command38", {"对比文件向后步退", "Comparison: step back"}},
        {"Command12", {"A显连续播放或暂停", "A-mode play or pause"}},
        {"Command24", {"作业质量汇总表，含超速详情", "Quality summary with overspeed"}},
        {"Label32", {"关闭A显（Esc）", "Close the A-mode (Esc)"}},
        {"Label9", {"关闭局部放大（Esc）", "Close the enlargement (Esc)"}},
        {"Tmc", {"分析员姓名，关闭窗口时保存分析记录", "Analyst's name; the session is saved on close"}},
        {"Tgwd", {"通知单上的工务段", "Maintenance section on the notice"}},
        {"Txb", {"通知单上的线别", "Line on the notice"}},
        {"Textdyrq", {"通知单上的分析日期", "Analysis date on the notice"}},
        {"Textbz", {"写在图像上的伤损标注", "Defect note on the picture"}},
        {"Combo3", {"只列出所选的分析标注", "List only this kind of point"}},
        {"Overview", {"全程概览：点击或拖动跳到该处", "The whole run: click or drag to go there"}},
        {"Picture1",
         {keystip, "Wheel: step; Shift+wheel: screen; Ctrl+wheel: expand/compress; arrows, PgUp/PgDn, "
                   "Home/End, Space, Ctrl+G, Esc"}},
        {"Picture6", {"对比文件的B显图像", "The comparison's B-mode picture"}},
        {"Picture3", {"左键暂停；右键连续播放", "Left: pause; right: play"}},
        {"Statuspointer", {"鼠标所指处的里程、时间和深度", "Kilometre, time and depth under the pointer"}},
        {"Statusplace", {"当前画面在全程中的位置", "Place of the view in the run"}},
        {"Statusspeed", {"回放速度和播放到文件结尾的剩余时间", "Replay speed and time to the end"}},
        {"Statusfile", {"打开的文件和大小", "The open file and its size"}},
    };
    return table;
}

// Controls of one kind by their number: the channel boxes, the filter boxes, the options.
std::string arraytip(const Station& st, const std::string& name) {
    const bool en = english(st);
    static const std::string channelboxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                                               "Check6", "Check7", "Check16", "Check17"};
    static const std::string filterboxes[] = {"Check9",  "Check10", "Check11", "Check12", "Check13",
                                              "Check14", "Check15", "Check18", "Check19"};
    for (int k = 0; k < 9; ++k) {
        const std::string channel(1, static_cast<char>('A' + k));
        if (name == channelboxes[k])
            return en ? "Show channel " + channel : "显示或隐藏通道" + channel + "的回波";
        if (name == filterboxes[k])
            return en ? "Filter channel " + channel : "过滤通道" + channel + "（不勾选则不过滤）";
        if (name == std::string("Ttd") + static_cast<char>('a' + k))
            return en ? "Threshold of channel " + channel
                      : "通道" + channel + "：连续长度不超过此值的回波被滤除";
        if (name == std::string("Lys") + static_cast<char>('a' + k))
            return en ? "Colour of channel " + channel : "点击选择通道" + channel + "的颜色";
    }
    if (name.rfind("Menurecent(", 0) == 0) return en ? "Open this recording" : "打开这个最近的记录";
    if (name.rfind("Checkts(", 0) == 0) return en ? "List these marks" : "只列出勾选的标记";
    if (name.rfind("Option", 0) == 0)
        return en ? "Display setting, kept for the next start" : "显示设置，下次启动仍有效";
    return "";
}

} // namespace

std::string controltip(const Station& st, const std::string& name) {
    const auto it = tips().find(name);
    if (it != tips().end()) return english(st) ? it->second.second : it->second.first;
    return arraytip(st, name);
}

} // namespace orvane
