// SPDX-License-Identifier: MIT
//
// Files as map reads and writes them: blocks of whole lines in, everything out or an Error.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vaprix::cli {

class File {
public:
    static File to_read(const std::string& name);   // "-" is stdin
    static File to_write(const std::string& name);  // "-" is stdout
    static File to_write(const std::string& name,
                         const File& in);  // not the file that is read
    File(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File& operator=(File&&) = delete;
    ~File();

    std::size_t read(char* to, std::size_t size) const;  // 0 at the end
    void write(std::string_view text) const;
    void close();  // Error if the system tells late that it could not write

    [[nodiscard]] std::size_t size() const noexcept;  // 0 if it is not known
    [[nodiscard]] bool is_terminal() const noexcept;

private:
    File(int descriptor, std::string name) : descriptor_(descriptor), name_(std::move(name)) {}
    int descriptor_;
    std::string name_;
};

// Cuts what is read into blocks that end with a line, at least one line each.
class Lines {
public:
    explicit Lines(const File& file) : file_(file) {}
    // False at the end. The line before the end need not have one. A line above longest_line is an Error.
    bool next(std::vector<char>& block);

    static constexpr std::size_t usual_size = std::size_t{1} << 19;
    static constexpr std::size_t longest_line = std::size_t{1} << 26;

private:
    const File& file_;
    std::vector<char> left_;  // of a line that has begun
    bool is_at_end_ = false;
};

}  // namespace vaprix::cli
