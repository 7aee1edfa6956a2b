// orvane: the replay and analysis station, started with the path of one recording.
#include "app/dialogwindow.h"
#include "app/form28window.h"
#include "app/printwindow.h"
#include "app/startup.h"
#include "station/station.h"
#include "station/systemclock.h"
#include "stores/stationfolder.h"

#include "app/desk.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <cstdlib>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // ORVANE_LANGUAGE=english selects the English text set of the main controls.
    const char* language = std::getenv("ORVANE_LANGUAGE");
    const bool inenglish = language && std::string(language) == "english";
    // Qt's own dialogs (colours, Yes/No, files) in the station's language.
    QTranslator qtwords;
    if (!inenglish && qtwords.load(QLocale(QLocale::Chinese, QLocale::China), "qtbase", "_",
                                   QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(&qtwords);
    orvane::Station st;
    orvane::DialogUi ui;
    orvane::SystemClock clock;
    st.ui = &ui;
    st.clock = &clock;
    st.countinstances = orvane::countthisprogram;

    try {
        orvane::entry(st, orvane::stores::stationfolder(), inenglish ? "english" : "china");
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, "orvane", QString::fromStdString(e.what()));
        return 1;
    }
    // ORVANE_VARIANT=BUILD:TARVIK fixes the two customer strings.
    if (const char* variant = std::getenv("ORVANE_VARIANT"); variant && !orvane::setvariant(st, variant)) {
        QMessageBox::critical(nullptr, "orvane",
                              "ORVANE_VARIANT 应为 BUILD:TARVIK（TARVIK 为 tarvik 或 feitarvik）");
        return 1;
    }

    // The command line is one path; a path with blanks may come in several pieces. Started without
    // one (from the desktop's menu), the station asks for a recording first.
    std::string commandline;
    for (int i = 1; i < argc; ++i) commandline += (i > 1 ? " " : "") + std::string(argv[i]);
    commandline = orvane::startpath(st, commandline);
    orvane::windowload(st, commandline);
    if (st.process.ended) return st.process.exitstatus;
    if (orvane::recordingpathok(orvane::stripquotes(commandline))) orvane::rememberrecording(st, commandline);

    orvane::Form28Window window(st, ui);
    orvane::DesktopWorkbooks workbooks(st, &window);
    st.workbooks = &workbooks;
    orvane::PreviewPrinter printer(ui, &window, orvane::english(st));
    st.printer = &printer;
    orvane::WindowScreen screen(&window);
    st.screen = &screen;
    st.hooks.capture = [&window](orvane::Station& st) { orvane::opencapture(st, &window); };
    window.show();
    int status = app.exec();
    return st.process.exitstatus ? st.process.exitstatus : status;
}
