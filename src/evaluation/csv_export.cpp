#include "evaluation/csv_export.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_file.h"
#include "core/guard.h"
#include "core/owned.h"
#include "data/data_object.h"
#include "evaluation/status_words.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kDigits = 6;
constexpr std::uint32_t kDialogFlags = 5;
constexpr std::uint32_t kWriteMode = 5;

// Text on its way to the file, in large pieces.
class CsvText {
  public:
    explicit CsvText(cKoFile& file) : file_(file) { text_.reserve(kPiece + kLongestNumber); }
    CsvText(const CsvText&) = delete;
    CsvText& operator=(const CsvText&) = delete;

    void put(std::string_view text) {
        text_ += text;
        if (text_.size() >= kPiece) flush();
    }
    void put(double value) {
        std::array<char, kLongestNumber> buffer;
        put({buffer.data(), RealToBufferA(value, buffer.data(), kDigits, 10)});
    }
    void put(std::uint64_t value, std::uint32_t radix = 10) {
        std::array<char, kLongestNumber> buffer;
        put({buffer.data(), QwordToBufferA(value, buffer.data(), radix)});
    }
    void commas(std::uint64_t count) {
        for (; count != 0; --count) put(",");
    }
    void endLine() { put("\r\n"); }
    void flush() {
        file_.Write(text_.data(), static_cast<std::int64_t>(text_.size()));
        text_.clear();
    }

  private:
    static constexpr std::size_t kPiece = 32768;
    static constexpr std::size_t kLongestNumber = 128;

    cKoFile& file_;
    std::string text_;
};

// One table: what of the node goes in, and each of its parts in the order of the file.
class CsvTable {
  public:
    CsvTable(cKoData& node, cKoData& target, std::uint32_t flags)
        : node_(node), target_(target), flags_(flags), channels_(target.Channels) {
        if (!has(CsvWholeZone)) {
            blocks_ = {&target};
        } else if (target.SiblingCount() != 0) {
            for (cKoData* block = &target; block; block = block->Next()) {
                blocks_.push_back(block);
                channels_ = std::min(channels_, block->Channels);
            }
        }
        if (has(CsvTwoChannels)) channels_ = std::min<std::uint64_t>(channels_, 2);
    }

    bool empty() const noexcept { return target_.Points == 0 || channels_ == 0 || blocks_.empty(); }

    void write(CsvText& out) {
        if (has(CsvWholeZone)) writeBlockRow(out);
        if (has(CsvResults)) writeResults(out);
        if (has(CsvChannelRow)) {
            writeRow(out, "Chn", [&](std::uint64_t channel) { out.put(channel); });
        }
        if (has(CsvKindRow)) {
            writeRow(out, "Flags", [&](std::uint64_t channel) {
                out.put(std::uint64_t{target_.ChannelKinds[channel]});
            });
        }
        if (has(CsvStatistics)) writeStatistics(out);
        for (std::uint64_t point = 0; point < target_.Points; ++point) writePoint(out, point);
        out.flush();
    }

  private:
    bool has(std::uint32_t flag) const noexcept { return (flags_ & flag) != 0; }
    std::uint64_t firstChannel() const noexcept { return has(CsvNoAxis) ? 1 : 0; }

    // Each block's number stands above its first column.
    void writeBlockRow(CsvText& out) const {
        out.put("Block,");
        if (has(CsvOneAxis) && !has(CsvNoAxis)) out.put(",");
        const bool ownAxis = !has(CsvNoAxis) && !has(CsvOneAxis);
        for (std::uint64_t number = 1; number <= blocks_.size(); ++number) {
            out.put(number);
            if (number != blocks_.size()) out.commas(channels_ - 1 + (ownAxis ? 1 : 0));
        }
        out.endLine();
    }

    void writeResults(CsvText& out) const {
        const std::uint64_t end = has(CsvTwoChannels) ? 2 : cKoData::kResultCount;
        out.put("Results");
        for (std::uint64_t i = firstChannel(); i < end; ++i) {
            out.put(",");
            out.put(node_.Results[i]);
            out.endLine();
        }
        out.endLine();
    }

    template <class PutCell>
    void writeRow(CsvText& out, std::string_view name, PutCell putCell) const {
        out.put(name);
        for (std::uint64_t channel = firstChannel(); channel < channels_; ++channel) {
            out.put(",");
            putCell(channel);
        }
        out.endLine();
    }

    void writeStatistics(CsvText& out) {
        for (std::uint64_t slot = 0; slot < cKoData::kStatisticSlots; ++slot) {
            out.put("Qval");
            out.put(slot);
            writeRow(out, "", [&](std::uint64_t channel) {
                out.put(target_.ChannelStatistic(channel, slot));
            });
        }
    }

    // A block that is shorter than the first has no values there.
    void putValue(CsvText& out, const cKoData& block, std::uint64_t channel,
                  std::uint64_t point) const {
        out.put(point < block.Points ? block.Channel(channel)[point] : ___NAN);
    }

    void writePoint(CsvText& out, std::uint64_t point) const {
        if (has(CsvPointTags)) {
            out.put(std::uint64_t{target_.PointTags[point]}, 16);
            out.put(",");
        }
        for (std::size_t i = 0; i < blocks_.size(); ++i) {
            const cKoData& block = *blocks_[i];
            const bool lastBlock = i + 1 == blocks_.size();
            if (!has(CsvNoAxis) && (i == 0 || !has(CsvOneAxis))) {
                putValue(out, block, 0, point);
                out.put(",");
            }
            for (std::uint64_t channel = 1; channel < channels_; ++channel) {
                putValue(out, block, channel, point);
                if (!lastBlock || channel + 1 != channels_) out.put(",");
            }
        }
        out.endLine();
    }

    cKoData& node_;
    cKoData& target_;
    std::uint32_t flags_;
    std::uint64_t channels_;
    std::vector<cKoData*> blocks_;
};

cKoData* targetOf(cKoData& node, std::uint32_t flags) noexcept {
    if (flags & CsvEvaluated) return node.Evaluated;
    return flags & CsvWholeZone ? node.FirstChild() : &node;
}

std::uint32_t nameFile(cKoFile& file, cKoData& target, const char16_t* path) {
    if (path) return file.SetPath(path, nullptr, nullptr) ? kSuccess : status::kIllegalFileName;
    const cKoData* owner = target.ParameterOwner();
    const bool chosen = file.SelectFile(
        u"Select a new CSV file", owner ? owner->FileFolder.get() : nullptr, u"csv",
        u"Comma-Separated Values (*.csv)|*.csv|All files (*.*)|*.*|", kDialogFlags, 0, nullptr);
    return chosen ? kSuccess : status::kUndefinedFile;
}

OwnedWideText copyPath(const char16_t* path) {
    if (!path) return {};
    const std::u16string_view text(path);
    return copyText(text.data(), text.size());
}

std::uint32_t writeCsv(cKoData& node, std::uint32_t flags, const char16_t* path) {
    cKoData* target = targetOf(node, flags);
    if (!target) return kSuccess;
    cKoFile file;
    const std::uint32_t named = nameFile(file, *target, path);
    if (named != kSuccess) return named;
    node.ExportPath = copyPath(file.path.get());
    CsvTable table(node, *target, flags);
    if (table.empty()) return status::kMissingInput;
    if (!file.Open(kWriteMode)) return status::kFileSystemError;
    CsvText text(file);
    table.write(text);
    file.Close();
    return kSuccess;
}

}  // namespace

std::uint32_t ExportNodeCsv(cKoData* node, std::uint32_t flags, const char16_t* path) {
    if (!node) return status::kMissingInput;
    return guardStatus([&] { return writeCsv(*node, flags, path); });
}

}  // namespace nuv64
