// The grammar of task scripts: steps behind "#", fields between commas, comments behind "//".
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "core/guard.h"
#include "core/owned.h"
#include "data/data_object.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "evaluation/task_engine.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/text_edit.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kTrimAndUpperCase = 256;

OwnedText groomedCopy(std::string_view field) {
    OwnedText text = copyText(field.data(), field.size());
    StringGroomA(text.get(), kTrimAndUpperCase);
    return text;
}

// Only plain decimal digits: "0x10" reads as its leading 0.
std::uint32_t decimal(const char* text) noexcept {
    return StringToDwordStrictA(text, nullptr, nullptr);
}

// Hands out the fields of a step one by one; there are only as many as there are commas.
class Fields {
  public:
    explicit Fields(const char* line) noexcept : rest_(line) {}

    std::string_view current() const noexcept { return {rest_, std::strcspn(rest_, ",")}; }
    // From here to the end of the step, commas included.
    const char* rest() const noexcept { return rest_; }
    bool advance() noexcept {
        const char* comma = std::strchr(rest_, ',');
        if (!comma) return false;
        rest_ = comma + 1;
        return true;
    }

  private:
    const char* rest_;
};

// A number behind a letter of the target field; moves text behind it.
std::uint64_t targetNumber(const char*& text) noexcept {
    std::uint64_t consumed = 0;
    const std::uint32_t value = StringToDwordStrictA(text, nullptr, &consumed);
    text += consumed;
    return value;
}

// Level, then "z" and the zone, then "b" and the block, then "e"; each may be left out.
void readTarget(std::string_view field, Step& step) {
    const OwnedText copy = copyText(field.data(), field.size());
    const char* text = copy.get();
    step.Level = targetNumber(text);
    if (*text == 'z') step.Zone = targetNumber(++text);
    if (*text == 'b') step.Block = targetNumber(++text);
    if (*text == 'e') step.OnEvaluated = 1;
}

// False for a step that is switched off.
bool readStep(const char* line, Step& step) {
    Fields fields(line);
    // A name that nothing knows becomes procedure 0xFFFFFFFF, which is refused only where the step
    // meets its first node.
    step.Procedure = procedureIdFromName(groomedCopy(fields.current()).get());
    if (!fields.advance()) return false;
    step.Mode = decimal(fields.rest());
    if (step.Mode == 0) return false;
    if (!fields.advance()) return true;
    step.Flags = decimal(fields.rest());
    if (!fields.advance()) return true;
    readTarget(fields.current(), step);
    if (!fields.advance()) return true;
    step.Option = groomedCopy(fields.current()).release();
    if (!fields.advance()) return true;
    step.ParameterList = groomedCopy(fields.rest()).release();
    return true;
}

}  // namespace

std::uint32_t RunScript(cKoData* root, const char* script, NuvCommandBlock* block) {
    if ((!script || !*script) && root) script = root->TaskScript.get();
    const char* mark = script ? std::strchr(script, '#') : nullptr;
    std::uint32_t status = mark ? kSuccess : status::kMissingScript;
    while (mark && status == kSuccess) {
        const char* text = mark + 1;
        mark = std::strchr(text, '#');
        status = guardStatus([&] {
            const std::size_t length =
                mark ? static_cast<std::size_t>(mark - text) : std::strlen(text);
            const OwnedText line = copyText(text, length);
            return RunScriptLine(root, line.get(), block);
        });
    }
    return status;
}

std::uint32_t RunScriptLine(cKoData* root, char* line, NuvCommandBlock* block) {
    if (!line) return kSuccess;
    StringCutoffCommentsA(line, "//", 0);
    if (!*line) return kSuccess;
    return guardStatus([&] {
        Step step;
        return readStep(line, step) ? RunEvp(root, &step, block) : kSuccess;
    });
}

}  // namespace nuv64
