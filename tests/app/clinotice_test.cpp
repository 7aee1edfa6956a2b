// The printed notice headless: orvane-cli notice and run --pages, read back with pdftotext.
#include "clirun.h"
#include "generator.h"
#include "stationfixture.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

class CliNotice : public orvane::testkit::StationTest {
  protected:
    std::string path;
    void SetUp() override {
        path = temp.file("small.ktr");
        ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("small"), 2));
    }
    orvane::testkit::CliRun cli(const std::string& arguments) {
        return orvane::testkit::runcli(home, temp.file("err"), arguments);
    }
    static QJsonObject jsonof(const std::string& file) {
        std::ifstream in(file);
        const std::string text((std::istreambuf_iterator<char>(in)), {});
        return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    }
    // The PDF's text without blanks and line ends, which the extraction places as it likes.
    std::string pdftext(const std::string& pdf) {
        const std::string out = temp.file("text.txt");
        EXPECT_EQ(std::system(("pdftotext -raw '" + pdf + "' '" + out + "'").c_str()), 0);
        std::ifstream in(out);
        std::string text((std::istreambuf_iterator<char>(in)), {});
        std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\f'; });
        return text;
    }
    static std::string withoutblanks(std::string text) {
        std::erase(text, ' ');
        return text;
    }
};

TEST_F(CliNotice, NoticeWritesThePageAsPdfWithEveryFieldAndCell) {
    const std::string pdf = temp.file("out.pdf");
    const auto r =
        cli("notice " + path + " --view 3000 --kind 反馈 --set Tgwd=哈尔滨 --set Txb=京哈 --set Tmc=张三 " +
            "--set Textdyrq=2026.11.23 -o " + pdf);
    ASSERT_EQ(r.status, 0) << r.err;
    ASSERT_TRUE(fs::exists(pdf));
    const QJsonArray ops = jsonof(temp.file("out.json"))["ops"].toArray();
    ASSERT_GT(ops.size(), 20);
    const QJsonObject title = ops[0].toObject();
    EXPECT_EQ(title["op"].toString(), "text");
    EXPECT_EQ(title["text"].toString(), "报警点反馈通知单");
    EXPECT_EQ(title["x"].toDouble(), 6500);
    EXPECT_EQ(title["y"].toDouble(), 400);
    EXPECT_EQ(title["font"].toString(), "Arial");
    EXPECT_EQ(title["size"].toDouble(), 24);
    EXPECT_FALSE(title["bold"].toBool());

    const std::string text = pdftext(pdf);
    for (const char* field :
         {"报警点反馈通知单", "工务段：哈尔滨", "线别：京哈", "分析人：张三", "分析日：2026.11.23", "日期：",
          "机号：", "B型显示图", "探头状态", "作业参数", "仪器设置", "GPS数值："})
        EXPECT_NE(text.find(field), std::string::npos) << field << "\n" << text;
    int tables = 0, pictures = 0;
    for (const auto& value : ops) {
        const QJsonObject op = value.toObject();
        if (op["op"].toString() == "picture") {
            ++pictures;
            EXPECT_TRUE(op["source"].toString() == "Picture1" || op["source"].toString() == "Picture3");
        }
        if (op["op"].toString() != "table") continue;
        ++tables;
        EXPECT_EQ(op["rowheight"].toDouble(), 330);
        for (const auto& row : op["rows"].toArray())
            for (const auto& cell : row.toArray()) {
                const std::string t = withoutblanks(cell.toString().toStdString());
                EXPECT_NE(text.find(t), std::string::npos) << t;
            }
    }
    EXPECT_EQ(tables, 3);
    EXPECT_EQ(pictures, 2);
}

TEST_F(CliNotice, RunPrintsEveryPageIntoTheFolderAndShowsTheColoursInForce) {
    const std::string pages = temp.file("pages");
    const auto r = cli("run " + path + " --pages " + pages +
                       " --do mouse:Command15:down:right:0:0 --do press:Commanddydy --do close:Form25");
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject out = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    const QJsonArray written = out["pages"].toArray();
    ASSERT_EQ(written.size(), 2);
    EXPECT_EQ(written[0].toString().toStdString(), pages + "/1.pdf");
    EXPECT_TRUE(fs::exists(pages + "/1.json"));
    EXPECT_TRUE(fs::exists(pages + "/2.pdf"));
    const QJsonObject state = out["state"].toObject();
    EXPECT_EQ(state["colors"].toObject()["bxianbackcolor"].toDouble(), 0); // given back by the close
    EXPECT_EQ(state["noticekind"].toString(), "复核");

    const auto white = cli("run " + path + " --do mouse:Command15:down:right:0:0");
    ASSERT_EQ(white.status, 0) << white.err;
    const QJsonObject whitestate =
        QJsonDocument::fromJson(QByteArray::fromStdString(white.out)).object()["state"].toObject();
    EXPECT_EQ(whitestate["colors"].toObject()["bxianbackcolor"].toDouble(), 16777215);
    EXPECT_EQ(whitestate["colors"].toObject()["biaochicolor"].toDouble(), 0);
    EXPECT_TRUE(whitestate["open"].toArray().contains("Form25"));
    EXPECT_TRUE(whitestate["controls"].toObject()["Frame5"].toObject()["visible"].toBool());
}

TEST_F(CliNotice, AnUnwritablePdfPathFailsWithItsReason) {
    const auto r = cli("notice " + path + " -o " + temp.file("no/such/folder/out.pdf"));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("无法写入文件：" + temp.file("no/such/folder/out.pdf")), std::string::npos) << r.err;
    EXPECT_EQ(cli("notice " + path + " --kind 其他 -o " + temp.file("x.pdf")).status, 2);
    EXPECT_EQ(cli("notice " + path).status, 2);
}

} // namespace
