#include <cstring>

#include "platform/screen.h"
#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

// The clipboard wants a window as its owner.
class OwnerWindow {
  public:
    OwnerWindow() noexcept
        : window_(::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    nullptr, nullptr)) {}
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;
    ~OwnerWindow() {
        if (window_) ::DestroyWindow(window_);
    }
    HWND get() const noexcept { return window_; }

  private:
    HWND window_;
};

class OpenClipboardHold {
  public:
    explicit OpenClipboardHold(HWND owner) noexcept {
        // Another program may have it open for a moment.
        constexpr int kTrials = 20;
        constexpr DWORD kPause = 10;  // milliseconds
        for (int i = 0; i < kTrials && !open_; ++i) {
            if (i > 0) ::Sleep(kPause);
            open_ = ::OpenClipboard(owner) != 0;
        }
    }
    OpenClipboardHold(const OpenClipboardHold&) = delete;
    OpenClipboardHold& operator=(const OpenClipboardHold&) = delete;
    ~OpenClipboardHold() {
        if (open_) ::CloseClipboard();
    }
    bool isOpen() const noexcept { return open_; }

  private:
    bool open_ = false;
};

// The memory of a global block while this lives.
class GlobalMemory {
  public:
    explicit GlobalMemory(HGLOBAL block) noexcept
        : block_(block), memory_(block ? ::GlobalLock(block) : nullptr) {}
    GlobalMemory(const GlobalMemory&) = delete;
    GlobalMemory& operator=(const GlobalMemory&) = delete;
    ~GlobalMemory() {
        if (memory_) ::GlobalUnlock(block_);
    }
    void* get() const noexcept { return memory_; }

  private:
    const HGLOBAL block_;
    void* const memory_;
};

// A block of movable global memory with the text, as the clipboard takes it.
HGLOBAL globalText(std::u16string_view text) noexcept {
    const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    if (!block) return nullptr;
    const GlobalMemory memory(block);
    if (memory.get()) std::memcpy(memory.get(), text.data(), text.size() * sizeof(char16_t));
    return block;
}

}  // namespace

bool setClipboardText(const char16_t* text) {
    const OwnerWindow owner;
    const OpenClipboardHold hold(owner.get());
    if (!hold.isOpen() || !::EmptyClipboard()) return false;
    const HGLOBAL block = globalText(text);
    if (!block) return false;
    if (::SetClipboardData(CF_UNICODETEXT, block)) return true;  // the clipboard's now
    ::GlobalFree(block);
    return false;
}

std::optional<std::u16string> clipboardText() {
    const OpenClipboardHold hold(nullptr);
    const HANDLE block = hold.isOpen() ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    const GlobalMemory memory(block);
    if (!memory.get()) return std::nullopt;
    // Another program's block need not be terminated.
    const std::u16string_view all(static_cast<const char16_t*>(memory.get()),
                                  ::GlobalSize(block) / sizeof(char16_t));
    return std::u16string(all.substr(0, all.find(u'\0')));
}

}  // namespace nuv64::platform
