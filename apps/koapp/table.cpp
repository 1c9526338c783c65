#include "table.h"

#include <algorithm>

namespace koapp {
namespace {

// Characters of a UTF-8 text.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::vector<std::size_t> columnWidths(const std::vector<Table::Row>& rows, std::size_t columns) {
    std::vector<std::size_t> widths(columns);
    for (const Table::Row& row : rows) {
        for (std::size_t i = 0; i < columns; ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    return widths;
}

}  // namespace

std::string Table::text() const {
    const std::size_t columns = alignment_.size();
    const std::vector<std::size_t> widths = columnWidths(rows_, columns);
    std::string all;
    for (const Row& row : rows_) {
        for (std::size_t i = 0; i < columns; ++i) {
            const std::string gap(widths[i] - widthOf(row[i]), ' ');
            all += "  ";
            all += alignment_[i] == 'r' ? gap + row[i] : row[i] + gap;
        }
        all.erase(all.find_last_not_of(' ') + 1);
        all += '\n';
    }
    return all;
}

}  // namespace koapp
