#include "arguments.h"

#include "native.h"

namespace koapp {
namespace {

namespace fs = std::filesystem;

struct PathOption {
    const char* name;
    std::optional<fs::path> Arguments::*target;
};

constexpr PathOption kPathOptions[] = {
    {"--script", &Arguments::script},
    {"--report", &Arguments::report},
    {"--csv", &Arguments::curves},
    {"--profile-csv", &Arguments::profile},
};

const PathOption* findPathOption(const std::string& word) {
    for (const PathOption& option : kPathOptions) {
        if (word == option.name) return &option;
    }
    return nullptr;
}

Task taskFrom(const std::string& word) {
    if (word == "info") return Task::Info;
    if (word == "evaluate") return Task::Evaluate;
    throw UsageError("unknown command '" + word + "'");
}

void checkInfo(const Arguments& arguments) {
    if (arguments.files.size() != 1) throw UsageError("info takes one file");
    if (arguments.script || arguments.report || arguments.curves || arguments.profile ||
        arguments.quiet) {
        throw UsageError("info takes no options");
    }
}

void checkEvaluate(const Arguments& arguments) {
    if (arguments.files.empty()) throw UsageError("evaluate needs a file");
    if (!arguments.script) throw UsageError("evaluate needs --script");
}

// The words behind the command.
class Reader {
  public:
    Reader(const std::vector<fs::path>& words, Arguments& arguments)
        : words_(words), arguments_(arguments) {}

    void readAll() {
        for (next_ = 1; next_ < words_.size();) read(words_[next_++]);
    }

  private:
    void read(const fs::path& word) {
        const std::string text = utf8(word);
        if (onlyFiles_ || text.size() < 2 || text[0] != '-') {
            arguments_.files.push_back(word);
        } else if (text == "--") {
            onlyFiles_ = true;
        } else if (text == "--quiet") {
            arguments_.quiet = true;
        } else {
            readPathOption(text);
        }
    }

    void readPathOption(const std::string& text) {
        const std::size_t equals = text.find('=');
        const PathOption* option = findPathOption(text.substr(0, equals));
        if (!option) throw UsageError("unknown option '" + text + "'");
        auto& target = arguments_.*(option->target);
        if (target) throw UsageError(std::string(option->name) + " is given twice");
        target = equals == std::string::npos ? following(option->name)
                                             : pathFromUtf8(text.substr(equals + 1));
        if (target->empty()) throw UsageError(std::string(option->name) + " needs a file name");
    }

    fs::path following(const char* option) {
        if (next_ >= words_.size()) {
            throw UsageError(std::string(option) + " needs a file name");
        }
        return words_[next_++];
    }

    const std::vector<fs::path>& words_;
    Arguments& arguments_;
    std::size_t next_ = 0;
    bool onlyFiles_ = false;
};

bool asksFor(const std::vector<fs::path>& words, const char* option) {
    for (const fs::path& word : words) {
        const std::string text = utf8(word);
        if (text == "--") return false;
        if (text == option) return true;
    }
    return false;
}

}  // namespace

Arguments parseArguments(const std::vector<fs::path>& words) {
    Arguments arguments;
    if (words.empty()) throw UsageError("no command");
    if (asksFor(words, "--help")) return arguments;
    if (asksFor(words, "--version")) {
        arguments.task = Task::Version;
        return arguments;
    }
    arguments.task = taskFrom(utf8(words[0]));
    Reader(words, arguments).readAll();
    if (arguments.task == Task::Info) {
        checkInfo(arguments);
    } else {
        checkEvaluate(arguments);
    }
    return arguments;
}

const char* helpText() noexcept {
    return "Usage:\n"
           "  koapp info FILE\n"
           "  koapp evaluate FILE... --script S [--report F] [--csv F] [--profile-csv F] "
           "[--quiet]\n"
           "  koapp --help | --version\n"
           "\n"
           "info      lists the zones of a data file (Stelar \"sdf\") and its parameters.\n"
           "evaluate  loads the files one behind the other, runs the task script over all their\n"
           "          zones and prints the report of each step.\n"
           "\n"
           "  --script S       the task script\n"
           "  --report F       writes the reports to F as well\n"
           "  --csv F          writes the curves of the zones to F: one line for each point with "
           "the\n"
           "                   zone's number, its relaxation field, the point's place on the "
           "block\n"
           "                   axis, and the curve's real part, imaginary part and fit\n"
           "  --profile-csv F  writes the relaxation profile of the experiment to F: the field and "
           "the\n"
           "                   rates of each zone\n"
           "  --quiet          prints no reports and no progress\n"
           "\n"
           "Files that exist are replaced. A script that fails leaves no CSV file.\n"
           "Exit status: 0 success; 1 failure, with the status number and its words on standard\n"
           "error; 2 wrong usage.\n";
}

}  // namespace koapp
