// A C++ host: opens a command block, asks for the words of a status, closes the block.
#include <nuv64/nuv64.h>

#include <cstdio>
#include <memory>
#include <string_view>

struct CloseBlock {
    void operator()(NuvCommandBlock* block) const noexcept { NuvCommand(CmdClose, block); }
};

int main() {
    const std::unique_ptr<NuvCommandBlock, CloseBlock> block(NuvCommand(CmdOpen, nullptr));
    if (!block) return 1;
    ErrorTextRequest request{};
    request.code = 56;
    block->Input = reinterpret_cast<std::uintptr_t>(&request);
    NuvCommand(CmdErrorTextA, block.get());
    const std::string_view words = request.textA ? request.textA : "";
    std::printf("C++ host: %s\n", words.data());
    return block->Status == 0 && words == "Missing file" ? 0 : 1;
}
