/* A C host: opens a command block, asks for the words of a status, closes the block. */
#include <nuv64/nuv64.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    NuvCommandBlock* block = NuvCommand(CmdOpen, NULL);
    ErrorTextRequest request;
    int good;
    if (!block) return 1;
    memset(&request, 0, sizeof request);
    request.code = 56;
    block->Input = (uint64_t)(uintptr_t)&request;
    NuvCommand(CmdErrorTextA, block);
    good = block->Status == 0 && request.textA && strcmp(request.textA, "Missing file") == 0;
    printf("C host: %s\n", request.textA ? request.textA : "(no words)");
    return NuvCommand(CmdClose, block) == NULL && good ? 0 : 1;
}
