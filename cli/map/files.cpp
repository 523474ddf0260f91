// SPDX-License-Identifier: MIT
#include "files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "units.hpp"

namespace vaprix::cli {
namespace {

[[noreturn]] void fail(const std::string& name, const char* what) {
    throw Error(name + ": " + what + ": " + std::strerror(errno));
}

}  // namespace

File File::to_read(const std::string& name) {
    if (name == "-") return {STDIN_FILENO, "stdin"};
    const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) fail(name, "cannot open");
    return {descriptor, name};
}

File File::to_write(const std::string& name, const File& in) {
    struct stat read {
    }, written{};
    if (name != "-" && ::fstat(in.descriptor_, &read) == 0 && ::stat(name.c_str(), &written) == 0 &&
        read.st_dev == written.st_dev && read.st_ino == written.st_ino)
        throw Error(name + " is the file that is read");
    return to_write(name);
}

File File::to_write(const std::string& name) {
    if (name == "-") return {STDOUT_FILENO, "stdout"};
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) fail(name, "cannot open");
    return {descriptor, name};
}

File::File(File&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), name_(std::move(other.name_)) {}

File::~File() {
    if (descriptor_ > STDERR_FILENO) ::close(descriptor_);
}

std::size_t File::read(char* to, std::size_t size) const {
    ssize_t got = 0;
    do got = ::read(descriptor_, to, size);
    while (got < 0 && errno == EINTR);
    if (got < 0) fail(name_, "cannot read");
    return static_cast<std::size_t>(got);
}

void File::write(std::string_view text) const {
    while (!text.empty()) {
        const ssize_t put = ::write(descriptor_, text.data(), text.size());
        if (put < 0 && errno != EINTR) fail(name_, "cannot write");
        text.remove_prefix(put < 0 ? 0 : static_cast<std::size_t>(put));
    }
}

void File::close() {
    if (::close(std::exchange(descriptor_, -1)) != 0) fail(name_, "cannot write");
}

std::size_t File::size() const noexcept {
    struct stat about {};
    return ::fstat(descriptor_, &about) == 0 && S_ISREG(about.st_mode)
               ? static_cast<std::size_t>(about.st_size)
               : 0;
}

bool File::is_terminal() const noexcept { return ::isatty(descriptor_) != 0; }

bool Lines::next(std::vector<char>& block) {
    block.swap(left_);
    left_.clear();
    std::size_t size = block.size(), searched = 0;
    while (!is_at_end_) {
        block.resize(std::max(usual_size, 2 * size));
        const std::size_t got = file_.read(block.data() + size, block.size() - size);
        is_at_end_ = got == 0;
        size += got;
        searched = size - got;
        const void* const newline =
            got == 0 ? nullptr : ::memrchr(block.data() + searched, '\n', got);
        if (newline != nullptr) {
            const auto end =
                static_cast<std::size_t>(static_cast<const char*>(newline) - block.data()) + 1;
            left_.assign(block.data() + end, block.data() + size);
            block.resize(end);
            return true;
        }
        if (size > longest_line)
            throw Error("a line is longer than " + std::to_string(longest_line >> 20) +
                        " MB: this is no table");
    }
    block.resize(size);
    return size > 0;
}

}  // namespace vaprix::cli
