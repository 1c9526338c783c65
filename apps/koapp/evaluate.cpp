#include "evaluate.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "curves.h"
#include "failure.h"
#include "host.h"
#include "native.h"
#include "numbers.h"
#include "progress.h"

namespace koapp {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kCsvTable = 10;
constexpr std::uint32_t kCsvOfEvaluated = 0x2;

// The module would take an empty text for the script that is stored in the data.
std::string readScript(const fs::path& path) {
    std::string script = readFile(path);
    if (script.empty() || script[0] == 0) throw Failure{kMissingScript, "script " + utf8(path)};
    return script;
}

// Reports of a failed run are told too: they say which step failed.
void runScript(Host& host, const Arguments& arguments, const std::string& script,
               const RunDisplay& display) {
    const std::uint32_t status = host.run(CmdRunScript, script.c_str());
    if (arguments.report) writeFile(*arguments.report, display.reports());
    if (status != 0) throw Failure{status, "script " + utf8(*arguments.script)};
}

void writeCurves(Host& host, const fs::path& path) {
    if (!hasCurves(host)) throw Failure{kMissingInput, "--csv: no zone has a curve"};
    writeFile(path, curveTable(host));
}

// The module creates the table anew and never replaces a file. It doesn't notice a write that
// fails, so the lines are counted here.
void exportProfile(Host& host, const fs::path& path, const std::string& shown) {
    const KoDataLayout& data = *host.data();
    const bool onEvaluated = data.Points == 0 && data.Evaluated;
    const std::u16string target = modulePath(path);
    ExportRequest request{kCsvTable,  target.c_str(), nullptr,
                          UINT64_MAX, UINT64_MAX,     onEvaluated ? kCsvOfEvaluated : 0};
    host.require(shown, CmdExport, &request);
    const auto& profile =
        onEvaluated ? *reinterpret_cast<const KoDataLayout*>(data.Evaluated) : data;
    const std::string table = readFile(path);
    const auto lines = std::count(table.begin(), table.end(), '\n');
    if (static_cast<std::uint64_t>(lines) != profile.Points) {
        throw Failure{kFileNotAccessible, shown};
    }
}

// A file that exists is replaced by a complete table or not at all.
void writeProfile(Host& host, const fs::path& path) {
    const std::string shown = utf8(path);
    if (host.data()->Points == 0 && !host.data()->Evaluated) {
        throw Failure{kMissingInput, "--profile-csv: the script made no profile"};
    }
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return exportProfile(host, path, shown);
    fs::path fresh = path;
    fresh += ".new";
    fs::remove(fresh, error);
    try {
        exportProfile(host, fresh, shown);
        fs::rename(fresh, path);
    } catch (const fs::filesystem_error&) {
        fs::remove(fresh, error);
        throw Failure{kFileNotAccessible, shown};
    } catch (const Failure&) {
        fs::remove(fresh, error);
        throw;
    }
}

}  // namespace

void evaluate(const Arguments& arguments) {
    const std::string script = readScript(*arguments.script);
    RunDisplay display(arguments.quiet, isTerminal(stderr));
    Host host(&display);
    for (const fs::path& file : arguments.files) host.load(file);
    runScript(host, arguments, script, display);
    if (arguments.curves) writeCurves(host, *arguments.curves);
    if (arguments.profile) writeProfile(host, *arguments.profile);
    flushOutput();
}

}  // namespace koapp
