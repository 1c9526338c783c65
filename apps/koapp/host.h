// The program as a host of the module: one command block and the listener that its events reach.
#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>

#include "nuv64/data/data_object.h"
#include "nuv64/evaluation/task_step.h"
#include "nuv64/host/command.h"

namespace koapp {

// What a task wants to hear of. Members may throw; the exception waits until the command is over.
class Listener {
  public:
    virtual ~Listener() = default;
    virtual void stepEnded(const EvpRecord&) {}
    virtual void fitBegan() {}
    virtual void fitProgress(const char*) {}
    virtual void fitEnded() {}
};

class Host {
  public:
    // Opens a block and describes the program. Throws a Failure.
    explicit Host(Listener* listener = nullptr);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Runs a command and returns its status.
    std::uint32_t run(std::uint32_t command, std::uint64_t input = 0);
    std::uint32_t run(std::uint32_t command, const void* input);
    // The same; throws a Failure about subject when the status is not 0.
    void require(const std::string& subject, std::uint32_t command, const void* input);

    // Appends the zones of a measured file. Throws a Failure.
    void load(const std::filesystem::path& file);

    // The experiment in hand.
    const KoDataLayout* data() const noexcept;

    // A command that answers with a number, a real, a text of the module or a new text; 0 or empty
    // when it fails.
    std::uint64_t number(std::uint32_t command, std::uint64_t input);
    double real(std::uint32_t command, std::uint64_t input);
    std::string text(std::uint32_t command, std::uint64_t input);
    std::string newText(std::uint32_t command, const void* input);
    std::string newText(std::uint32_t command, std::uint64_t input);
    // A parameter of a zone, empty when it has none of that key.
    std::string parameter(std::uint64_t zone, const char* key);

  private:
    static std::uint64_t onEvent(std::uint32_t event, NuvCommandBlock* block);
    std::uint64_t hear(std::uint32_t event);
    void tellListener(std::uint32_t event);
    std::string takeText();

    // A block has no room for a pointer of the host's, so the callback finds its host here: the
    // program opens one block.
    static Host* current_;

    NuvCommandBlock* block_;
    Listener* listener_;
    std::exception_ptr thrown_;
};

// The words of a status, asked of the module.
std::string statusWords(std::uint32_t status);

// The children of a node.
inline const KoDataLayout* firstChild(const KoDataLayout& node) noexcept {
    return reinterpret_cast<const KoDataLayout*>(node.FirstChild);
}
inline const KoDataLayout* nextSibling(const KoDataLayout& node) noexcept {
    return reinterpret_cast<const KoDataLayout*>(node.NextSibling);
}

}  // namespace koapp
