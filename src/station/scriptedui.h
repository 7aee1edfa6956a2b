#pragma once
// The Ui port without a screen: answers given up front, messages collected. Used by the headless
// front and by the tests.
#include "station/ports.h"

#include <deque>

namespace orvane {

class ScriptedUi : public Ui {
  public:
    std::vector<std::string> messages;  // every message box text, in order
    std::vector<std::string> questions; // every question and input prompt, in order
    std::deque<std::string> answers;    // answers of input boxes and questions ("yes"/"no"), in order
    double barmax = 0;
    long barvalue = -1;

    void message(const std::string& text) override { messages.push_back(text); }
    bool askyesno(const std::string& text) override;
    std::optional<std::string> inputbox(const std::string& prompt, const std::string& title,
                                        const std::string& preset) override;
    std::optional<std::string> openfile(const std::string& filter, const std::string& extension) override;
    std::optional<std::string> savefile(const std::string& filter, const std::string& extension,
                                        const std::string& title = "") override;
    std::optional<std::uint32_t> pickcolor(std::uint32_t current) override;
    void progressmax(double maximum) override { barmax = maximum; }
    void progress(long value) override { barvalue = value; }

  private:
    std::optional<std::string> next();
};

} // namespace orvane
