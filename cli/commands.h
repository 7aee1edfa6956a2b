#pragma once
// The commands of orvane-cli.
#include "station/ports.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvane {
struct Station;
struct Side;
class RecordingCanvas;
struct PrintedPage;
class ScriptedUi;
class Workbook;
} // namespace orvane

namespace orvane::cli {

// The settings as the station loaded them: the color rows as stored, the mark names, the values in force.
std::string settingsjson(Station& st);

// The ranges of positions that dump lists cell by cell.
struct DumpRanges {
    std::optional<std::pair<std::int64_t, std::int64_t>> cells;
    std::optional<std::pair<std::int64_t, std::int64_t>> mileage;
    std::optional<std::pair<std::int64_t, std::int64_t>> cellsdb; // run only: the comparison store
};

class Json;
// Under KEY the cells of SIDE in RANGE (cut to its rows) where either grid is not 0:
// [position, column, samplegrid, rawgrid], in position then column order.
void cellsjson(Json& j, const std::string& key, const Side& side,
               std::pair<std::int64_t, std::int64_t> range);

// The main side as the first activation leaves it: counters, lists, channels and the ranges asked for.
std::string dumpjson(Station& st, const std::string& file, const std::vector<std::string>& messages,
                     const DumpRanges& ranges);

// The operations of a picture: its scale, the background's operations and those since the last clear.
std::string opsjson(const RecordingCanvas& canvas);
// The picture as a PNG, one canvas unit a pixel across unless WIDTH and HEIGHT in pixels are given;
// false when the file cannot be written.
bool writepng(const RecordingCanvas& canvas, const std::string& path, int width = 0, int height = 0);

// An action of orvane-cli run that names no control or has a bad form.
class ActionError : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

// One action as a user performs it: press, tick, enter, set, scroll, mouse, row, dblclick, select,
// close. False when it closed the main window, which ends the actions.
bool runaction(Station& st, const std::string& action);
// The messages shown and the state of the replay after the actions, with the cells asked for.
// WORKBOOKS and PAGES: the workbooks and pages written under --workbooks and --pages, when given.
std::string statejson(Station& st, const ScriptedUi& ui, const DumpRanges& ranges,
                      const std::vector<std::string>* workbooks, const std::vector<std::string>* pages);

// A workbook's model as JSON: sheets with names, cells, row fonts, column widths and borders.
std::string workbookjson(const Workbook& book);
// BOOK as the .xlsx file XLSXPATH with its JSON beside it; throws std::runtime_error with the reason.
void writeworkbook(const Workbook& book, const std::string& xlsxpath);

// --workbooks DIR: every workbook handed over during run as DIR/N.xlsx and DIR/N.json.
class FolderWorkbooks : public Workbooks {
  public:
    explicit FolderWorkbooks(std::string dir) : folder(std::move(dir)) {}
    void show(const Workbook& book, const std::string& report) override;
    std::string folder;
    std::vector<std::string> paths;
};

// A printed page as JSON: its operations in twips, in the order made.
std::string pagejson(const PrintedPage& page);
// PAGE as the PDF file PDFPATH with its JSON beside it; the reason when it can't be written.
std::optional<std::string> writepage(const PrintedPage& page, const std::string& pdfpath);

// --pages DIR: every page printed during run as DIR/N.pdf and DIR/N.json. The notice's window
// stays open until the actions close it.
class FolderPrinter : public Printer {
  public:
    explicit FolderPrinter(std::string dir) : folder(std::move(dir)) {}
    bool print(const PrintedPage& page) override;
    std::string folder;
    std::vector<std::string> paths;
};

// What the user sees, headless: the main picture as a bitmap of the window's size.
class PictureScreen : public Screen {
  public:
    explicit PictureScreen(const RecordingCanvas& picture) : picture_(picture) {}
    std::string windowbitmap() override;

  private:
    const RecordingCanvas& picture_;
};

// A Qt application for fonts and images, made once when first needed; no screen is used.
void guiapplication();

// orvane-cli report: KIND for each of FILES into FOLDER, JOBS files at once.
struct ReportRequest {
    std::string kind;
    std::vector<std::string> files;
    std::string folder;
    std::string speed = "3";
    int jobs = 1;
};
// Loads FILE into a fresh station (its Ui and clock set) as dump does and sets the controls; the reason when
// it cannot.
using Prepare = std::function<std::optional<std::string>(Station&, ScriptedUi&, const std::string& file)>;
// Prints the JSON summary; 1 when any file failed.
int report(const ReportRequest& request, const Prepare& prepare);

} // namespace orvane::cli
