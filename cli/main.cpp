// orvane-cli: the station's logic without a window, for batch work and end-to-end checks.
#include "app/controls.h"
#include "app/scriptedui.h"
#include "app/settings.h"
#include "app/startup.h"
#include "app/station.h"
#include "app/systemclock.h"
#include "commands.h"
#include "stores/stationfolder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr const char* usage = "usage: orvane-cli settings|dump FILE [--cells FROM:TO] [--mileage FROM:TO] "
                              "[--seed N] [--set NAME=VALUE]... "
                              "[--answer TEXT]... [-o FILE]";

struct Arguments {
    std::string command;
    std::vector<std::string> positional;
    std::optional<std::uint32_t> seed;
    std::vector<std::pair<std::string, std::string>> sets;
    std::vector<std::string> answers;
    std::string output;
    orvane::cli::DumpRanges ranges;
};

// FROM:TO as two whole numbers.
std::optional<std::pair<std::int64_t, std::int64_t>> range(const std::string& text) {
    auto colon = text.find(':');
    if (colon == std::string::npos) return std::nullopt;
    try {
        std::size_t a = 0, b = 0;
        std::int64_t from = std::stoll(text.substr(0, colon), &a),
                     to = std::stoll(text.substr(colon + 1), &b);
        if (a != colon || b != text.size() - colon - 1) return std::nullopt;
        return std::pair{from, to};
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

int badarguments(const std::string& why) {
    std::cerr << "orvane-cli: " << why << "\n" << usage << "\n";
    return 2;
}

int failed(const std::string& why) {
    std::cerr << "orvane-cli: " << why << "\n";
    return 1;
}

// Parses the command line; returns an error text when it is wrong.
std::optional<std::string> parse(int argc, char** argv, Arguments& a) {
    if (argc < 2) return "no command";
    a.command = argv[1];
    for (int i = 2; i < argc; ++i) {
        std::string arg = argv[i];
        auto next = [&]() -> std::optional<std::string> {
            if (i + 1 >= argc) return std::nullopt;
            return std::string(argv[++i]);
        };
        if (arg == "--seed") {
            auto v = next();
            if (!v) return "--seed needs a number";
            char* end = nullptr;
            unsigned long n = std::strtoul(v->c_str(), &end, 10);
            if (v->empty() || *end) return "--seed needs a number";
            a.seed = static_cast<std::uint32_t>(n);
        } else if (arg == "--set") {
            auto v = next();
            auto eq = v ? v->find('=') : std::string::npos;
            if (!v || eq == std::string::npos || eq == 0) return "--set needs NAME=VALUE";
            a.sets.emplace_back(v->substr(0, eq), v->substr(eq + 1));
        } else if (arg == "--answer") {
            auto v = next();
            if (!v) return "--answer needs a text";
            a.answers.push_back(*v);
        } else if (arg == "--cells" || arg == "--mileage") {
            auto v = next();
            auto r = v ? range(*v) : std::nullopt;
            if (!r) return arg + " needs FROM:TO";
            (arg == "--cells" ? a.ranges.cells : a.ranges.mileage) = r;
        } else if (arg == "-o") {
            auto v = next();
            if (!v) return "-o needs a file";
            a.output = *v;
        } else if (arg.rfind("--", 0) == 0) {
            return "unknown option " + arg;
        } else {
            a.positional.push_back(arg);
        }
    }
    return std::nullopt;
}

int writeoutput(const Arguments& a, const std::string& text) {
    if (a.output.empty()) {
        std::cout << text << "\n";
        return 0;
    }
    std::ofstream out(a.output, std::ios::binary);
    out << text << "\n";
    if (!out) return failed("cannot write " + a.output);
    return 0;
}

// The --set changes, in the order given, each as the user's change of that control; nullopt when all
// went through, else the exit status.
std::optional<int> applysets(orvane::Station& st, const Arguments& args) {
    for (const auto& [name, value] : args.sets) {
        try {
            if (name.find('.') != std::string::npos)
                orvane::setsetting(st, name, value);
            else
                orvane::setcontrol(st, name, value);
        } catch (const orvane::ControlError& e) {
            return badarguments(e.what());
        } catch (const std::exception& e) {
            return failed(e.what());
        }
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    Arguments args;
    if (auto error = parse(argc, argv, args)) return badarguments(*error);
    if (args.command != "settings" && args.command != "dump")
        return badarguments("unknown command " + args.command);
    if (args.command == "settings" && !args.positional.empty()) return badarguments("settings takes no file");
    if (args.command == "dump" && args.positional.size() != 1) return badarguments("dump takes one file");

    orvane::Station st;
    orvane::ScriptedUi ui;
    ui.answers.assign(args.answers.begin(), args.answers.end());
    std::unique_ptr<orvane::SystemClock> clock = args.seed ? std::make_unique<orvane::SystemClock>(*args.seed)
                                                           : std::make_unique<orvane::SystemClock>();
    st.ui = &ui;
    st.clock = clock.get();

    const char* language = std::getenv("ORVANE_LANGUAGE");
    try {
        orvane::entry(st, orvane::stores::stationfolder(),
                      language && std::string(language) == "english" ? "english" : "china");
    } catch (const std::exception& e) {
        return failed(e.what());
    }

    try {
        if (args.command == "dump") {
            const std::string& file = args.positional[0];
            orvane::windowload(st, file);
            if (st.process.ended)
                return failed(ui.messages.empty() ? file + " cannot be opened" : ui.messages.back());
            orvane::windowactivate(st);
            if (auto status = applysets(st, args)) return *status;
            return writeoutput(args, orvane::cli::dumpjson(st, file, ui.messages, args.ranges));
        }
        if (auto status = applysets(st, args)) return *status;
        return writeoutput(args, orvane::cli::settingsjson(st));
    } catch (const std::exception& e) {
        return failed(e.what());
    }
}
