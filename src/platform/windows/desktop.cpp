// clang-format off
#include "platform/windows/native.h"
#include <commdlg.h>
#include <shellapi.h>
// clang-format on

namespace nuv64::platform {

namespace {

constexpr DWORD kDialogBuffer = 4096;

UINT buttonFlags(Buttons buttons) noexcept {
    switch (buttons) {
        case Buttons::kOk:
            return MB_OK;
        case Buttons::kOkCancel:
            return MB_OKCANCEL;
        case Buttons::kYesNo:
            return MB_YESNO;
        case Buttons::kYesNoCancel:
            return MB_YESNOCANCEL;
        case Buttons::kRetryCancel:
            return MB_RETRYCANCEL;
    }
    return MB_OK;
}

UINT iconFlags(Icon icon) noexcept {
    switch (icon) {
        case Icon::kInformation:
            return MB_ICONINFORMATION;
        case Icon::kWarning:
            return MB_ICONWARNING;
        case Icon::kError:
            return MB_ICONERROR;
        case Icon::kQuestion:
            return MB_ICONQUESTION;
    }
    return 0;
}

Answer answerOf(int button) noexcept {
    switch (button) {
        case IDOK:
        case IDYES:
        case IDRETRY:
            return Answer::kYes;
        case IDNO:
            return Answer::kNo;
        case IDCANCEL:
            return Answer::kCancel;
        default:
            return Answer::kFailed;
    }
}

}  // namespace

// A service has a window station that nobody sees: a box there would wait for ever.
bool hasUserInterface() noexcept {
    USEROBJECTFLAGS flags{};
    const HWINSTA station = ::GetProcessWindowStation();
    return station &&
           ::GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE);
}

Answer messageBox(const char16_t* text, const char16_t* title, Buttons buttons, Icon icon) {
    if (!hasUserInterface()) return Answer::kFailed;
    const UINT flags = buttonFlags(buttons) | iconFlags(icon) | MB_SETFOREGROUND | MB_TASKMODAL;
    return answerOf(::MessageBoxW(nullptr, wide(text), wide(title), flags));
}

std::u16string fileDialog(const FileDialog& dialog) {
    if (!hasUserInterface()) return u"";
    std::u16string name(kDialogBuffer, u'\0');
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner =
        dialog.owner ? static_cast<HWND>(asHandle(dialog.owner)) : ::GetActiveWindow();
    request.lpstrFilter = wide(dialog.filter);
    request.nFilterIndex = 1;
    request.lpstrFile = wide(name.data());
    request.nMaxFile = kDialogBuffer;
    request.lpstrInitialDir = wide(dialog.folder);
    request.lpstrTitle = wide(dialog.title);
    request.lpstrDefExt = wide(dialog.defaultExtension);
    request.Flags = dialog.options;
    const BOOL chosen = dialog.save ? ::GetSaveFileNameW(&request) : ::GetOpenFileNameW(&request);
    if (!chosen) {
        ::SetLastError(::CommDlgExtendedError());
        return u"";
    }
    const std::size_t end = name.find(std::u16string_view(u"\0\0", 2));
    if (end != std::u16string::npos) name.resize(end + 2);
    return name;
}

bool shellOpen(const char16_t* target) {
    const HINSTANCE result =
        ::ShellExecuteW(nullptr, L"open", wide(target), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > 32;  // up to 32 it is an error number
}

}  // namespace nuv64::platform
