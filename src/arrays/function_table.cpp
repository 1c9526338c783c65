#include "nuv64/arrays/function_table.h"

#include <cmath>
#include <functional>

#include "core/guard.h"
#include "nuv64/arrays/grid.h"
#include "nuv64/core/console_arrays.h"
#include "nuv64/core/console_control.h"
#include "nuv64/core/console_input.h"
#include "nuv64/core/console_output.h"
#include "nuv64/core/file.h"
#include "nuv64/core/file_dialog.h"
#include "nuv64/core/formatter.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kNoFileChosen = 1;
constexpr std::uint32_t kIllegalData = 15;
constexpr std::uint32_t kMissingFunction = 20;
constexpr std::uint32_t kFileSystemError = 48;

constexpr std::uint32_t kConsole = 1, kFile = 2;  // bits of CinOutputDestination

void open(const char16_t* heading) noexcept {
    ConClear();
    CoutStr(heading);
}
void open(const char* heading) noexcept {
    ConClear();
    CoutStrA(heading);
}

// Where the lines of a table go.
class TableOutput {
  public:
    TableOutput() = default;
    ~TableOutput() { close(); }
    TableOutput(const TableOutput&) = delete;
    TableOutput& operator=(const TableOutput&) = delete;

    // Asks the user; false when no file was chosen.
    bool choose() noexcept {
        destination_ = CinOutputDestination();
        if (!(destination_ & kFile)) return true;
        file_ = OsOpenNewFileA("Specify a new file name", nullptr);
        return file_ != 0 && file_ != -1;
    }

    bool toConsole() const noexcept { return (destination_ & kConsole) != 0; }

    bool write(const char* line) const noexcept {
        if (toConsole()) CoutStrA(line);
        return !(destination_ & kFile) || FileWriteA(file_, line);
    }

    bool close() noexcept { return FileClose(&file_, 1); }

  private:
    std::uint32_t destination_ = 0;
    std::int64_t file_ = 0;
};

std::uint32_t tabulate(const std::function<double(double)>& function, const char* columns) {
    std::uint64_t type = 0, points = 0;
    double minimum = 0.0, maximum = 0.0;
    const std::uint32_t status = CinRArrGrid(&type, &minimum, &maximum, &points);
    if (status != kSuccess) return status;
    TableOutput output;
    if (!output.choose()) return kNoFileChosen;
    if (output.toConsole()) CoutStrA(columns);
    bool written = true;
    for (std::uint64_t i = 0; i < points && written; ++i) {
        const double x = RArrGridValue(i, type, points, minimum, maximum);
        char line[512];
        SprintfToBufferA(line, sizeof line, " %.15g\t%.15g\r\n", x, function(x));
        written = output.write(line);
    }
    written &= output.close();
    CoutStrA("\n..................................................\n");
    return written ? kSuccess : kFileSystemError;
}

template <class Ch>
std::uint32_t tabulateOne(double (*function)(double), const Ch* heading) noexcept {
    if (!function) return kMissingFunction;
    return guardStatus([&] {
        open(heading);
        return tabulate(function, "\n x\t\t f(x) \n");
    });
}

template <class Ch>
std::uint32_t tabulateWithReal(double (*function)(double, double), const Ch* heading,
                               const char* columns) noexcept {
    if (!function) return kMissingFunction;
    return guardStatus([&] {
        open(heading);
        const double parameter = CinRealA("\n   Parameter     :", nullptr);
        if (std::isnan(parameter)) return kIllegalData;
        return tabulate([=](double x) { return function(x, parameter); }, columns);
    });
}

template <class Ch>
std::uint32_t tabulateWithQword(double (*function)(double, std::uint64_t),
                                const Ch* heading) noexcept {
    if (!function) return kMissingFunction;
    return guardStatus([&] {
        open(heading);
        const std::uint64_t parameter = CinQwordA("\n   Parameter     :", nullptr);
        if (parameter == UINT64_MAX) return kIllegalData;
        return tabulate([=](double x) { return function(x, parameter); }, "\n x\t\t f(x,q) \n");
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t ConTabulateRFunctionR(double (*function)(double), const char16_t* heading) noexcept {
    return tabulateOne(function, heading);
}

uint32_t ConTabulateRFunctionRA(double (*function)(double), const char* heading) noexcept {
    return tabulateOne(function, heading);
}

uint32_t ConTabulateRFunctionRR(double (*function)(double, double),
                                const char16_t* heading) noexcept {
    return tabulateWithReal(function, heading, "\n x\t\t f(x,r) \n");
}

uint32_t ConTabulateRFunctionRRA(double (*function)(double, double), const char* heading) noexcept {
    return tabulateWithReal(function, heading, "\n x\t\t f(x,r) \n");
}

uint32_t ConTabulateRFunctionRD(double (*function)(double, double),
                                const char16_t* heading) noexcept {
    return tabulateWithReal(function, heading, "\n x\t\t f(x,d) \n");
}

uint32_t ConTabulateRFunctionRDA(double (*function)(double, double), const char* heading) noexcept {
    return tabulateWithReal(function, heading, "\n x\t\t f(x,d) \n");
}

uint32_t ConTabulateRFunctionRQ(double (*function)(double, uint64_t),
                                const char16_t* heading) noexcept {
    return tabulateWithQword(function, heading);
}

uint32_t ConTabulateRFunctionRQA(double (*function)(double, uint64_t),
                                 const char* heading) noexcept {
    return tabulateWithQword(function, heading);
}
