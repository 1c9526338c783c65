// Reading lines: from memory, and from a file through windows of a few bytes. Both give the lines
// that a loop over the bytes finds. The first byte sizes the window.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "core/data_file.h"
#include "core/line_source.h"
#include "nuv64/core/file.h"
#include "nuv64/core/memory.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

struct Line {
    std::int64_t consumed;
    std::string text;
};

std::vector<Line> plainLines(const std::string& content) {
    std::vector<Line> lines;
    std::string text;
    std::int64_t consumed = 0;
    for (const char c : content) {
        ++consumed;
        if (c != '\n' && c != 26 && c != 0) {
            text += c;
            continue;
        }
        if (c == '\n' && !text.empty() && text.back() == '\r') text.pop_back();
        lines.push_back({consumed, text});
        text.clear();
        consumed = 0;
    }
    lines.push_back({0, text});
    return lines;
}

void readFromMemory(const std::string& content, const std::vector<Line>& lines) {
    nuv64::MemoryLineSource source(content);
    std::string_view text;
    for (const Line& line : lines) {
        require(source.next(text) == line.consumed);
        require(text == line.text);
    }
    require(source.next(text) == 0 && text.empty());
}

// One file for the whole run, in a place of its own, written over and cut each time: file systems
// take long over files that are made anew.
class File {
  public:
    File()
        : path_((std::filesystem::temp_directory_path() /
                 ("nuv64_lines_fuzz_" + std::to_string(std::random_device()())))
                    .u16string()),
          handle_(FileOpen(path_.c_str(), 1 | 0x80)) {}
    ~File() {
        FileClose(&handle_, 0);
        FileDelete(path_.c_str());
    }
    const std::u16string& path() const { return path_; }
    void write(const std::string& content) {
        require(FileRewind(handle_, nullptr) == 1);
        require(FileWriteBinary(handle_, content.data(), content.size()));
        require(FileTruncate(handle_));
    }

  private:
    std::u16string path_;
    std::int64_t handle_;
};

void readFromFile(const std::string& content, const std::vector<Line>& lines, std::int64_t limit) {
    static File written;
    written.write(content);
    cKoFile file(written.path().c_str(), nullptr, nullptr);
    require(file.OpenExisting(0x80, 0));
    file.windowLimit = limit;
    char* text = nullptr;
    for (const Line& line : lines) {
        require(file.ReadLine(&text) == line.consumed);
        require(std::string(text ? text : "") == line.text);
    }
    KillStringA(&text);
    require(file.Seek(0));
    std::string_view view;
    for (const Line& line : lines) {
        require(file.ReadLineView(view) == line.consumed);
        require(view == line.text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string content(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::vector<Line> lines = plainLines(content);
    readFromMemory(content, lines);
    readFromFile(content, lines, 3 + data[0] % 40);
    return 0;
}
