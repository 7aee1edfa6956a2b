#include "reports/shelf.h"

#include "reports/xlsx.h"
#include "station/numbers.h"
#include "station/station.h"

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace orvane {

void handover(Station& st, const Workbook& book, const std::string& report) {
    if (st.workbooks) st.workbooks->show(book, report);
}

std::string reportpath(const Station& st, const std::string& report) {
    const std::tm t = st.clock->now();
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%04d%02d%02d-%02d%02d%02d", t.tm_year + 1900, t.tm_mon + 1, t.tm_mday,
                  t.tm_hour, t.tm_min, t.tm_sec);
    // A workbook made without a recording (a table's export) is named by the report alone.
    const std::string base = fs::path(st.zhu.filepath).stem().string();
    const std::string name = (base.empty() ? "" : base + "-") + report + "-" + stamp + ".xlsx";
    return (fs::path(st.folder) / "reports" / name).string();
}

Shelved shelve(const Station& st, const Workbook& book, const std::string& report) {
    Shelved s{reportpath(st, report), std::nullopt};
    std::error_code ec;
    fs::create_directories(fs::path(s.path).parent_path(), ec);
    if (ec) {
        s.failed = "无法创建报表文件夹 " + fs::path(s.path).parent_path().string() + "：" + ec.message();
        return s;
    }
    s.failed = savexlsx(book, s.path);
    return s;
}

std::optional<float> askspeedstandard(Station& st, const std::string& title, const std::string& prompt) {
    const auto answer = st.ui->inputbox(prompt, title, "3");
    if (!answer || answer->empty()) return std::nullopt;
    const auto number = typednumber(*answer);
    if (!number) {
        st.ui->message("输入有误。。。请注意，速度标准值中不能出现非数字的字符");
        return std::nullopt;
    }
    return static_cast<float>(*number);
}

} // namespace orvane
