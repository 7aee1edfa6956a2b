// ktrgen: writes a synthetic recording of the KRM-5T format for demonstrations, tests and benchmarks.
#include "generator.h"
#include "scenario.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* usage =
    "usage: ktrgen [--preset demo|small|large] [--scenario FILE] [--seed N] [--truth FILE]\n"
    "              [--length-km X] [--start-km X] [--count up|down] [--joint 12.5|25]\n"
    "              [--rail FROM:WEIGHT,...] [--defect KIND@METRES]... [--restarts N]\n"
    "              [--reversals N] [--speed MIN:MAX] [--instrument NNNNN] -o FILE.ktr";

} // namespace

int main(int argc, char** argv) {
    ktrgen::Scenario scenario = ktrgen::preset("demo");
    std::uint32_t seed = 1;
    std::string output, truthpath;
    try {
        for (int i = 1; i < argc; ++i) {
            const std::string arg = argv[i];
            if (arg == "-h" || arg == "--help") {
                std::cout << usage << "\n";
                return 0;
            }
            if (arg.rfind("--", 0) != 0 && arg != "-o")
                throw std::invalid_argument("unexpected argument: " + arg);
            if (i + 1 >= argc) throw std::invalid_argument(arg + " needs a value");
            const std::string value = argv[++i];
            if (arg == "-o") {
                output = value;
            } else if (arg == "--preset") {
                scenario = ktrgen::preset(value);
            } else if (arg == "--scenario") {
                ktrgen::readscenario(scenario, value);
            } else if (arg == "--seed") {
                std::size_t used = 0;
                const unsigned long n = std::stoul(value, &used);
                if (used != value.size()) throw std::invalid_argument("--seed needs a number");
                seed = static_cast<std::uint32_t>(n);
            } else if (arg == "--truth") {
                truthpath = value;
            } else {
                ktrgen::setoption(scenario, arg.substr(2), value);
            }
        }
        if (output.empty()) throw std::invalid_argument("-o FILE is required");
        ktrgen::validate(scenario);
    } catch (const std::exception& e) {
        std::cerr << "ktrgen: " << e.what() << "\n" << usage << "\n";
        return 2;
    }
    try {
        const ktrgen::Recording r = ktrgen::generate(scenario, seed);
        ktrgen::writefile(output, reinterpret_cast<const char*>(r.bytes.data()), r.bytes.size());
        if (!truthpath.empty()) {
            const std::string json = ktrgen::truthjson(r.truth);
            ktrgen::writefile(truthpath, json.data(), json.size());
        }
        std::cerr << "ktrgen: " << output << ": " << r.truth.records << " records, " << r.bytes.size()
                  << " bytes, last position " << r.truth.lastposition << "\n";
    } catch (const std::exception& e) {
        std::cerr << "ktrgen: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
