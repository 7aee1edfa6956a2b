#include "station/scriptedui.h"

#include "station/vbval.h"

namespace orvane {

std::optional<std::string> ScriptedUi::next() {
    // A dialog with no answer left is cancelled.
    if (answers.empty()) return std::nullopt;
    std::string a = answers.front();
    answers.pop_front();
    return a;
}

bool ScriptedUi::askyesno(const std::string& text) {
    questions.push_back(text);
    auto a = next();
    return a && (*a == "yes" || *a == "y" || *a == "1");
}

std::optional<std::string> ScriptedUi::inputbox(const std::string& prompt, const std::string&,
                                                const std::string&) {
    questions.push_back(prompt);
    return next();
}

std::optional<std::string> ScriptedUi::openfile(const std::string&, const std::string&) {
    return next();
}

std::optional<std::string> ScriptedUi::savefile(const std::string&, const std::string&, const std::string&) {
    return next();
}

std::optional<std::uint32_t> ScriptedUi::pickcolor(std::uint32_t) {
    auto a = next();
    if (!a) return std::nullopt;
    return static_cast<std::uint32_t>(vbval(*a));
}

} // namespace orvane
