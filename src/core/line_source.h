// The one interface through which text readers see their input, so that a file, a block of memory,
// a fuzzer or a fault injector can stand behind it.
#pragma once

#include <cstdint>
#include <string_view>

struct cKoFile;

namespace nuv64 {

// Lines by the rules of cKoFile::ReadLine: a line ends with LF (a CR before it goes too), Ctrl-Z or
// NUL. next returns the bytes consumed with the line end, 0 at the end of the input (line is then
// the last line if that has no line end, empty otherwise), negative on failure.
class LineSource {
  public:
    virtual ~LineSource() = default;
    // line stays valid until the next call.
    virtual std::int64_t next(std::string_view& line) = 0;
    virtual std::int64_t tell() const = 0;
    virtual bool seek(std::int64_t offset) = 0;
};

class FileLineSource final : public LineSource {
  public:
    explicit FileLineSource(cKoFile& file) noexcept : file_(file) {}
    std::int64_t next(std::string_view& line) override;
    std::int64_t tell() const override;
    bool seek(std::int64_t offset) override;

  private:
    cKoFile& file_;
};

class MemoryLineSource final : public LineSource {
  public:
    explicit MemoryLineSource(std::string_view text) noexcept : text_(text) {}
    std::int64_t next(std::string_view& line) override;
    std::int64_t tell() const override;
    bool seek(std::int64_t offset) override;

  private:
    std::string_view text_;
    std::size_t position_ = 0;
};

}  // namespace nuv64
