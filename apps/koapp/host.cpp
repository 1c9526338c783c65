#include "host.h"

#include <bit>
#include <memory>
#include <utility>

#include "failure.h"
#include "native.h"

namespace koapp {
namespace {

constexpr std::uint32_t kGraphicalHost = 2;  // kind 1 would hand the program over to the module

std::uint64_t pointerWord(const void* pointer) noexcept {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

const char* textAt(std::uint64_t word) noexcept {
    return reinterpret_cast<const char*>(static_cast<std::uintptr_t>(word));
}

}  // namespace

Host* Host::current_ = nullptr;

Host::Host(Listener* listener) : block_(NuvCommand(CmdOpen, nullptr)), listener_(listener) {
    if (!block_) throw Failure{kAllocationFailure, "start"};
    current_ = this;
    block_->Callback = onEvent;
    const auto info = std::make_unique<ApplicationInfo>();
    info->TextCapacity = 1024;
    info->ApplicationKind = kGraphicalHost;
    const std::uint32_t status = run(CmdApplicationInfo, info.get());
    if (status != 0) {
        NuvCommand(CmdClose, block_);
        current_ = nullptr;
        throw Failure{status, "start"};
    }
}

Host::~Host() {
    NuvCommand(CmdClose, block_);
    current_ = nullptr;
}

std::uint32_t Host::run(std::uint32_t command, std::uint64_t input) {
    block_->Input = input;
    NuvCommand(command, block_);
    if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
    return block_->Status;
}

std::uint32_t Host::run(std::uint32_t command, const void* input) {
    return run(command, pointerWord(input));
}

void Host::require(const std::string& subject, std::uint32_t command, const void* input) {
    if (const std::uint32_t status = run(command, input)) throw Failure{status, subject};
}

void Host::load(const std::filesystem::path& file) {
    constexpr std::uint32_t kNeedsFileName = 0x200;
    const std::u16string path = modulePath(file);
    const LoadRequest request{NUV64_SOURCE_STELAR, path.c_str(), kNeedsFileName, nullptr};
    require(utf8(file), CmdLoad, &request);
}

const KoDataLayout* Host::data() const noexcept {
    return reinterpret_cast<const KoDataLayout*>(block_->Data);
}

std::uint64_t Host::number(std::uint32_t command, std::uint64_t input) {
    return run(command, input) == 0 ? block_->Output : 0;
}

double Host::real(std::uint32_t command, std::uint64_t input) {
    return std::bit_cast<double>(number(command, input));
}

std::string Host::text(std::uint32_t command, std::uint64_t input) {
    const char* text = textAt(number(command, input));
    return text ? text : "";
}

std::string Host::newText(std::uint32_t command, const void* input) {
    return run(command, input) == 0 ? takeText() : std::string();
}

std::string Host::newText(std::uint32_t command, std::uint64_t input) {
    return run(command, input) == 0 ? takeText() : std::string();
}

std::string Host::parameter(std::uint64_t zone, const char* key) {
    const ParameterRequest request{zone, key, 0, nullptr};
    return newText(CmdGetParameter, &request);
}

// Copies the new text in Output and gives it back to the module.
std::string Host::takeText() {
    const char* text = textAt(block_->Output);
    std::string copy = text ? text : "";
    run(CmdKillText, &text);
    return copy;
}

std::uint64_t Host::onEvent(std::uint32_t event, NuvCommandBlock* block) {
    Host* host = current_;
    return host && host->block_ == block ? host->hear(event) : 0;
}

// No exception may cross the module.
std::uint64_t Host::hear(std::uint32_t event) {
    if (event == EvLoadByHost) {
        const auto& request = *reinterpret_cast<const HostLoadRequest*>(block_->Input);
        return LoadKoDataEx(request.Data, static_cast<std::uint32_t>(request.SourceType),
                            request.Path);
    }
    if (!listener_ || thrown_) return 0;
    try {
        tellListener(event);
    } catch (...) {
        thrown_ = std::current_exception();
    }
    return 0;
}

void Host::tellListener(std::uint32_t event) {
    switch (event) {
        case EvStepReport:
            listener_->stepEnded(*reinterpret_cast<const EvpRecord*>(block_->Input));
            break;
        case EvFitBegin:
            listener_->fitBegan();
            break;
        case EvFitProgress:
            listener_->fitProgress(textAt(block_->Input));
            break;
        case EvFitEnd:
            listener_->fitEnded();
            break;
        default:
            break;
    }
}

std::string statusWords(std::uint32_t status) {
    NuvCommandBlock* block = NuvCommand(CmdOpen, nullptr);
    if (!block) return "Allocation failure";
    ErrorTextRequest request{status, 0, nullptr, nullptr};
    block->Input = pointerWord(&request);
    NuvCommand(CmdErrorTextA, block);
    const std::string words = request.textA ? request.textA : "";
    NuvCommand(CmdClose, block);
    return words;
}

}  // namespace koapp
