// koapp: loads measured relaxometry files and evaluates them with task scripts.
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "arguments.h"
#include "evaluate.h"
#include "failure.h"
#include "host.h"
#include "info.h"
#include "native.h"
#include "numbers.h"
#include "nuv64/core/version.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

void showVersion() {
    koapp::print("koapp " + koapp::numberText(NUV64_VERSION_MAJOR) + "." +
                 koapp::numberText(NUV64_VERSION_MINOR) + "." +
                 koapp::numberText(NUV64_VERSION_BUILD) + "\n");
    koapp::flushOutput();
}

void run(const koapp::Arguments& arguments) {
    switch (arguments.task) {
        case koapp::Task::Help:
            koapp::print(koapp::helpText());
            koapp::flushOutput();
            break;
        case koapp::Task::Version:
            showVersion();
            break;
        case koapp::Task::Info:
            koapp::showInfo(arguments.files.front());
            break;
        case koapp::Task::Evaluate:
            koapp::evaluate(arguments);
            break;
    }
}

// The number of an allocation failure is shown as hosts know it.
int reportFailure(std::uint32_t status, const std::string& subject) {
    const std::string number =
        status == koapp::kAllocationFailure ? "0x80001" : koapp::numberText(status);
    std::fprintf(stderr, "koapp: %s: status %s: %s\n", subject.c_str(), number.c_str(),
                 koapp::statusWords(status).c_str());
    return kFailed;
}

int runProgram(int argc, char** argv) {
    koapp::prepareConsole();
    try {
        run(koapp::parseArguments(koapp::commandLineWords(argc, argv)));
        return 0;
    } catch (const koapp::UsageError& error) {
        std::fprintf(stderr, "koapp: %s\n\n%s", error.what(), koapp::helpText());
        return kWrongUsage;
    } catch (const koapp::Failure& failure) {
        return reportFailure(failure.status, failure.subject);
    } catch (const std::bad_alloc&) {
        return reportFailure(koapp::kAllocationFailure, "memory");
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return runProgram(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "koapp: status 47: Internal error: %s\n", error.what());
        return kFailed;
    }
}
