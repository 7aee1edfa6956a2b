#pragma once
// The outside world as the station's logic sees it: small interfaces with one Qt implementation
// for the program and one scripted implementation for tests and the headless front.
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

// Dialogs and the progress of a walk.
class Ui {
  public:
    virtual ~Ui() = default;
    virtual void message(const std::string& text) = 0;
    virtual bool askyesno(const std::string& text) = 0;
    // nullopt when the user cancels.
    virtual std::optional<std::string> inputbox(const std::string& prompt, const std::string& title,
                                                const std::string& preset) = 0;
    virtual std::optional<std::string> openfile(const std::string& filter, const std::string& extension) = 0;
    // TITLE: the dialog's title; none gives the desktop's own.
    virtual std::optional<std::string> savefile(const std::string& filter, const std::string& extension,
                                                const std::string& title = "") = 0;
    virtual std::optional<std::uint32_t> pickcolor(std::uint32_t current) = 0;
    // The bar pb1 during a walk: a new maximum, then values from 0 upwards.
    virtual void progressmax(double maximum) = 0;
    virtual void progress(long value) = 0;
};

// Date and time of the station, and the random source of the made bottom wave.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual std::tm now() = 0;
    // A number in [0, 1), as the random function of the instrument's software gives it.
    virtual float rnd() = 0;
};

// One value of a result row: null, a whole number, a real number or a text.
struct DbValue {
    enum class Kind { null, integer, real, text } kind = Kind::null;
    std::int64_t integer = 0;
    double real = 0;
    std::string text;

    bool isnull() const { return kind == Kind::null; }
    // The value as a number, texts read as the station's Val reads them.
    double number() const;
    // The value as text: numbers in their plain decimal form.
    std::string astext() const;
};
using DbRow = std::vector<DbValue>;

// One open database connection. Statements take their user texts as bound parameters.
class Db {
  public:
    virtual ~Db() = default;
    virtual const std::string& path() const = 0;
    virtual void exec(const std::string& sql, const std::vector<std::string>& params = {}) = 0;
    // First column of the first row; a null value when there is no row.
    virtual DbValue scalar(const std::string& sql, const std::vector<std::string>& params = {}) = 0;
    virtual std::vector<DbRow> rows(const std::string& sql, const std::vector<std::string>& params = {}) = 0;
};

class Workbook;

// A finished workbook handed to the user; REPORT names the report ("quality", "markspeed", ...).
class Workbooks {
  public:
    virtual ~Workbooks() = default;
    virtual void show(const Workbook& book, const std::string& report) = 0;
};

struct PrintedPage;

// The printed page of the notice: the program shows it in its print preview, the headless front and
// the tests write it as a file. True when the preview window was closed before the call returns.
class Printer {
  public:
    virtual ~Printer() = default;
    virtual bool print(const PrintedPage& page) = 0;
};

// What the user sees: the program grabs its window, the headless front draws the main picture.
class Screen {
  public:
    virtual ~Screen() = default;
    // The picture as the bytes of a BMP file; empty when there is nothing to grab.
    virtual std::string windowbitmap() = 0;
    // The whole desktop, every screen, for the capture window, as the bytes of a picture file; where
    // the platform can't grab the screen, the station's own window.
    virtual std::string wholescreen() { return windowbitmap(); }
};

} // namespace orvane
