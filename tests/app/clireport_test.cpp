// orvane-cli report over a folder of recordings, and the workbooks that run hands over.
#include "clirun.h"
#include "generator.h"
#include "reports/xlsx.h"
#include "stationfixture.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

class CliReport : public orvane::testkit::StationTest {
  protected:
    struct Run {
        int status = -1;
        QJsonObject out;
        std::string err;
    };
    Run cli(const std::string& arguments) {
        const orvane::testkit::CliRun run = orvane::testkit::runcli(home, temp.file("err"), arguments);
        return {run.status, QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object(), run.err};
    }
    std::string recording(const std::string& name, std::uint32_t seed) {
        const std::string path = temp.file(name);
        ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("small"), seed));
        return path;
    }
};

TEST_F(CliReport, OneWorkbookPerGoodFileAndEachBadFileReported) {
    const std::string a = recording("a.ktr", 2), b = recording("b.ktr", 3);
    fs::create_directory(temp.path() / "folder.ktr");
    { std::ofstream(temp.file("noise.ktr")) << std::string(3000, '\x5a'); }
    const std::string out = temp.file("out");
    const Run r = cli("report quality " + a + " " + temp.file("folder.ktr") + " " + b + " " +
                      temp.file("missing.ktr") + " " + temp.file("noise.ktr") + " --jobs 2 -o " + out);
    EXPECT_EQ(r.status, 1);
    const QJsonArray reports = r.out["reports"].toArray();
    ASSERT_EQ(reports.size(), 2);
    EXPECT_EQ(reports[0].toObject()["file"].toString().toStdString(), a);
    EXPECT_EQ(reports[1].toObject()["file"].toString().toStdString(), b);
    const QJsonObject figures = reports[0].toObject()["figures"].toObject();
    EXPECT_TRUE(figures.contains("overspeed"));
    EXPECT_EQ(figures["length"].toString(), "0.198");
    EXPECT_EQ(figures["meanspeed"].toString(), "3.0");
    EXPECT_EQ(r.out["failed"].toArray().size(), 3);
    EXPECT_TRUE(fs::exists(out + "/a-quality.xlsx"));
    EXPECT_TRUE(fs::exists(out + "/a-quality.json"));
    EXPECT_TRUE(fs::exists(out + "/b-quality.xlsx"));
    EXPECT_FALSE(fs::exists(out + "/noise-quality.xlsx"));
    // One line of progress a file.
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 5);
    const orvane::Workbook book = orvane::readxlsx(out + "/a-quality.xlsx");
    EXPECT_EQ(book.sheets()[0].read(3, 3).text, "51207");
}

TEST_F(CliReport, EveryKindMakesItsWorkbook) {
    const std::string a = recording("a.ktr", 2);
    for (const char* kind : {"quality", "daily", "markspeed", "overview", "integral", "rawsamples"}) {
        const Run r = cli(std::string("report ") + kind + " " + a + " --speed 2 -o " + temp.file("out"));
        EXPECT_EQ(r.status, 0) << kind << r.err;
        EXPECT_TRUE(fs::exists(temp.file("out") + "/a-" + kind + ".xlsx")) << kind;
    }
    const Run bad = cli("report weekly " + a + " -o " + temp.file("out"));
    EXPECT_EQ(bad.status, 2);
}

TEST_F(CliReport, TheVariantChoosesTheLayout) {
    const std::string a = recording("a.ktr", 2);
    const Run r = cli("report quality " + a + " --variant longxi:feitarvik -o " + temp.file("out"));
    ASSERT_EQ(r.status, 0) << r.err;
    const orvane::Workbook book = orvane::readxlsx(temp.file("out") + "/a-quality.xlsx");
    EXPECT_EQ(book.sheets()[0].read(1, 1).text, "    钢  轨  探  伤  作  业  质  量  汇  总                ");
    EXPECT_EQ(cli("report quality " + a + " --variant nonsense -o " + temp.file("out")).status, 1);
}

TEST_F(CliReport, TheDailyReportComesWhateverTheVariantWithTheIndexLoadedFirst) {
    const std::string a = recording("a.ktr", 2);
    const Run r = cli("report daily " + a + " --variant longxi:feitarvik -o " + temp.file("out"));
    ASSERT_EQ(r.status, 0) << r.err;
    const orvane::Workbook book = orvane::readxlsx(temp.file("out") + "/a-daily.xlsx");
    ASSERT_GE(book.sheets().size(), 5u);
    const char* names[] = {"日台数据分析报告", "超速详情表", "草状波不达标地段汇总表", "全程超速汇总表",
                           "积分值列表"};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(book.sheets()[i].name, names[i]);
    EXPECT_EQ(book.sheets()[0].read(5, 4).text, "KRM-5T");
    // The list of integral values was there to copy: rows with suppression on stand below the head.
    EXPECT_EQ(book.sheets()[4].read(2, 11).text, "执机人");
    EXPECT_NE(book.sheets()[4].read(3, 1).text, "");
    const QJsonObject figures = r.out["reports"].toArray()[0].toObject()["figures"].toObject();
    EXPECT_TRUE(figures.contains("overspeed"));

    // In the window's configuration for it, Command24 makes it too.
    const std::string dir = temp.file("books");
    const Run run = cli("run " + a + " --variant haerbin:tarvik --workbooks " + dir +
                        " --answer 3 --answer 3 --do press:Command24 --do press:Commanddaily");
    ASSERT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.out["workbooks"].toArray().size(), 2);
    for (const char* n : {"/1.xlsx", "/2.xlsx"})
        EXPECT_EQ(orvane::readxlsx(dir + n).sheets()[0].name, "日台数据分析报告") << n;
}

TEST_F(CliReport, RunWritesTheWorkbooksHandedOverInOrder) {
    const std::string a = recording("a.ktr", 2);
    const std::string dir = temp.file("books");
    const Run r =
        cli("run " + a + " --workbooks " + dir + " --answer 2 --do press:Command19 --do press:Lzygk");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonArray books = r.out["workbooks"].toArray();
    ASSERT_EQ(books.size(), 2);
    EXPECT_EQ(books[0].toString().toStdString(), dir + "/1.xlsx");
    std::ifstream in(dir + "/1.json");
    const std::string text((std::istreambuf_iterator<char>(in)), {});
    const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    const QJsonObject first = model["sheets"].toArray()[0].toObject();
    EXPECT_EQ(first["name"].toString(), "标记点超速汇总表");
    EXPECT_EQ(first["rowfonts"].toObject()["1"].toInt(), 20);
    EXPECT_EQ(first["columnwidths"].toObject()["A"].toInt(), 150);
    EXPECT_EQ(r.out["questions"].toArray()[0].toString(), "请输入速度标准值（单位为：公里/小时）");
}

} // namespace
