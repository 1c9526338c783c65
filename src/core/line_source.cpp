#include "core/line_source.h"

#include "core/data_file.h"
#include "core/line_scan.h"

namespace nuv64 {

std::int64_t FileLineSource::next(std::string_view& line) {
    return file_.ReadLineView(line);
}

std::int64_t FileLineSource::tell() const {
    return file_.position;
}

bool FileLineSource::seek(std::int64_t offset) {
    return file_.Seek(offset);
}

std::int64_t MemoryLineSource::next(std::string_view& line) {
    const char* first = text_.data() + position_;
    const char* last = text_.data() + text_.size();
    const char* end = findLineEnd(first, last);
    const bool complete = end != last;
    const std::size_t consumed = static_cast<std::size_t>(end - first) + (complete ? 1 : 0);
    line = text_.substr(position_, consumed);
    position_ += consumed;
    if (!complete) return 0;
    line = withoutLineEnd(line);
    return static_cast<std::int64_t>(consumed);
}

std::int64_t MemoryLineSource::tell() const {
    return static_cast<std::int64_t>(position_);
}

bool MemoryLineSource::seek(std::int64_t offset) {
    if (offset < 0 || static_cast<std::uint64_t>(offset) > text_.size()) return false;
    position_ = static_cast<std::size_t>(offset);
    return true;
}

}  // namespace nuv64
