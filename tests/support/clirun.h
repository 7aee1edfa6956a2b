#pragma once
// orvane-cli run as a user runs it, on the station folder HOME; what it printed and said.
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace orvane::testkit {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err; // what it said on standard error
};

// ERRFILE takes standard error on its way.
inline CliRun runcli(const std::string& home, const std::string& errfile, const std::string& arguments) {
    const std::string command = "ORVANE_HOME='" + home + "' " ORVANE_CLI " " + arguments + " 2>" + errfile;
    CliRun r;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 4096> buf{};
    for (std::size_t n; (n = fread(buf.data(), 1, buf.size(), pipe)) > 0;) r.out.append(buf.data(), n);
    const int status = pclose(pipe);
    r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream err(errfile);
    r.err.assign(std::istreambuf_iterator<char>(err), {});
    return r;
}

} // namespace orvane::testkit
