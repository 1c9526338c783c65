#include "nuv64/core/status.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

constexpr std::uint32_t kCodeMask = 0x7FFFF;

struct StatusText {
    std::uint32_t code;
    const char* text;
};

// By ascending code.
constexpr StatusText kStatusTexts[] = {
    {0, ""},
    {1, "Allocation failure"},
    {2, "Cannot start Application"},
    {3, "Internal system error"},
    {4, "Shell command error"},
    {5, "Console management error"},
    {6, "Clipboard access error"},
    {7, "Missing module"},
    {8, "Interface error"},
    {9, "Not yet implemented"},
    {10, "Unknown command"},
    {11, "Illegal mode"},
    {12, "Not this list item"},
    {13, "Missing list item"},
    {14, "Missing input data"},
    {15, "Illegal data"},
    {16, "Illegal data type"},
    {17, "Illegal data size"},
    {18, "Missing output buffer"},
    {19, "Output buffer overrun"},
    {20, "Missing/unknown function"},
    {21, "Missing parameters"},
    {22, "Missing argument(s)"},
    {23, "Missing cKoData object"},
    {24, "Illegal input"},
    {25, "Illegal parameters"},
    {26, "Illegal argument"},
    {27, "Illegal format"},
    {28, "Wrong input format"},
    {29, "Wrong output format"},
    {30, "Wrong parameters count"},
    {31, "Wrong arguments count"},
    {32, "Size mismatch"},
    {33, "No solution"},
    {34, "Multiple solutions"},
    {35, "Solution not found"},
    {36, "No convergence"},
    {37, "Time limit exceeded"},
    {38, "Too many items"},
    {39, "Too many iterations"},
    {40, "Division by zero"},
    {41, "Overflow"},
    {42, "Underflow"},
    {43, "Matrix operation failure"},
    {44, "Unknown ID"},
    {45, "Duplicate ID"},
    {46, "Impossible task"},
    {47, "Internal error"},
    {48, "File system error"},
    {49, "Missing disk"},
    {50, "Bad disk FAT"},
    {51, "Disk not ready"},
    {52, "Wrong disk"},
    {53, "Disk is full"},
    {54, "Disk is write protected"},
    {55, "Missing folder"},
    {56, "Missing file"},
    {57, "File sharing error"},
    {58, "File not accessible"},
    {59, "Illegal file name"},
    {60, "Illegal file"},
    {61, "Bad file discriminator"},
    {62, "Unexpected file end"},
    {63, "Undefined file"},
    {64, "Unknown function"},
    {65, "Unknown data source"},
    {66, "Unknown experiment"},
    {67, "Missing/Invalid evaluation task script"},
    {68, "Unknown evaluation procedure"},
    {69, "Unknown evaluation procedure mode"},
    {70, "Illegal evaluation window"},
    {71, "Evaluation window is too small"},
    {72, "Expected a sorted array"},
    {73, "Too many function calls"},
    {80, "Mixed scoring type"},
    {82, "Missing or illegal script"},
    {256, "Unkown mol-script type"},
};

}  // namespace

const char* KoErrorStringA(uint32_t code) noexcept {
    const auto* row =
        std::ranges::lower_bound(kStatusTexts, code & kCodeMask, {}, &StatusText::code);
    if (row == std::end(kStatusTexts) || row->code != (code & kCodeMask)) return "Unnamed error";
    return row->text;
}

const char16_t* KoErrorString(uint32_t code) noexcept {
    static char16_t buffer[256];
    const char* text = KoErrorStringA(code);
    std::size_t length = 0;
    for (; text[length] != 0; ++length) buffer[length] = static_cast<char16_t>(text[length]);
    buffer[length] = 0;
    return buffer;
}
