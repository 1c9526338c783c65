// A table of texts in columns.
#pragma once

#include <string>
#include <vector>

namespace koapp {

class Table {
  public:
    using Row = std::vector<std::string>;

    // rightAligned: one letter for each column, 'r' for right and 'l' for left.
    Table(Row head, std::string alignment) : rows_{std::move(head)}, alignment_(alignment) {}

    void add(Row row) { rows_.push_back(std::move(row)); }

    // The rows, two blanks between columns, each as wide as its widest text.
    std::string text() const;

  private:
    std::vector<Row> rows_;
    std::string alignment_;
};

}  // namespace koapp
