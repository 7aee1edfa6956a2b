#include "processing/safefile.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace orvane {

namespace {

std::string reason() {
    return std::strerror(errno);
}

// Writes all of SIZE bytes, going on after interruptions and short writes.
bool writeall(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

// Copies the file BASE into FD.
std::optional<std::string> copyinto(int fd, const std::string& base) {
    const int in = ::open(base.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return "无法读取 " + base + "：" + reason();
    std::vector<char> block(1 << 20);
    std::optional<std::string> failed;
    for (;;) {
        const ssize_t n = ::read(in, block.data(), block.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            failed = "无法读取 " + base + "：" + reason();
            break;
        }
        if (n == 0) break;
        if (!writeall(fd, block.data(), static_cast<std::size_t>(n))) {
            failed = "";
            break;
        }
    }
    const int error = errno; // the reason of a failed write, kept past the close
    ::close(in);
    errno = error;
    return failed;
}

} // namespace

std::string partialof(const std::string& target) {
    const fs::path path(target);
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    return (folder / ("." + path.filename().string() + "." + std::to_string(::getpid()) + partialsuffix))
        .string();
}

namespace {

// Makes the rename in FOLDER lasting.
void syncfolder(const fs::path& folder) {
    const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

fs::path folderof(const std::string& target) {
    const fs::path path(target);
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

} // namespace

std::optional<std::string> commitfile(const std::string& target, const std::string& base,
                                      const std::string& tail) {
    const fs::path folder = folderof(target);
    std::error_code ec;
    if (fs::is_directory(target, ec)) return target + " 是一个文件夹";
    const std::string partial = partialof(target);
    const int fd = ::open(partial.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return "无法写入文件夹 " + folder.string() + "：" + reason();
    // An empty reason stands for the error of the last call on the target's side.
    std::optional<std::string> failed;
    if (!base.empty()) failed = copyinto(fd, base);
    if (!failed && !writeall(fd, tail.data(), tail.size())) failed = "";
    if (!failed && ::fsync(fd) != 0) failed = "";
    if (failed) {
        const int error = errno;
        ::close(fd);
        errno = error;
    } else if (::close(fd) != 0) {
        failed = "";
    }
    if (!failed && ::rename(partial.c_str(), target.c_str()) != 0) failed = "";
    if (failed) {
        if (failed->empty()) failed = "无法写入 " + target + "：" + reason();
        ::unlink(partial.c_str());
        return failed;
    }
    syncfolder(folder);
    return std::nullopt;
}

std::optional<std::string> commitpartial(const std::string& partial, const std::string& target) {
    std::error_code ec;
    std::optional<std::string> failed;
    if (fs::is_directory(target, ec)) failed = target + " 是一个文件夹";
    if (!failed) {
        const int fd = ::open(partial.c_str(), O_RDONLY | O_CLOEXEC);
        bool done = fd >= 0 && ::fsync(fd) == 0;
        if (fd >= 0) done = ::close(fd) == 0 && done;
        if (!done || ::rename(partial.c_str(), target.c_str()) != 0)
            failed = "无法写入 " + target + "：" + reason();
    }
    if (failed) {
        ::unlink(partial.c_str());
        return failed;
    }
    syncfolder(folderof(target));
    return std::nullopt;
}

void sweeppartials(const std::string& folder) {
    std::error_code ec;
    const std::string suffix = partialsuffix;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() <= suffix.size() ||
            name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
            continue;
        // ".target.PID.orvane-partial": a save of a running process is left alone.
        const std::string stem = name.substr(0, name.size() - suffix.size());
        const std::size_t dot = stem.rfind('.');
        const long pid = dot == std::string::npos ? 0 : std::atol(stem.c_str() + dot + 1);
        if (pid > 0 && pid != ::getpid() && (::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM))
            continue;
        std::error_code removed;
        fs::remove(it->path(), removed);
    }
}

} // namespace orvane
