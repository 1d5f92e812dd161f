#include "app/win32/desktop_application.h"

#include <cstdio>
#include <cstdlib>

#include "app/win32/windows_api.h"
#include "core/cp1252.h"
#include "core/wide_text.h"

namespace {

std::wstring decoded(std::string_view text) { return toWide(cp1252::toUtf8(text)); }

bool somebodyCanSee() {
  USEROBJECTFLAGS flags = {};
  const HWINSTA station = GetProcessWindowStation();
  return GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) == 0 ||
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

/// The form that a box belongs to: without one it could end up behind the form that it blocks.
HWND formInFront() {
  HWND found = nullptr;
  const auto look = [](HWND window, LPARAM result) -> BOOL {
    if (IsWindowVisible(window) == 0) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
  };
  EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
  return found;
}

/// The messages of a form with keys of its own (Tab, Return) are a dialog's.
void dispatch(MSG& message) {
  const HWND form = GetAncestor(message.hwnd, GA_ROOT);
  if (form != nullptr && IsDialogMessageW(form, &message) != 0) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace

void DesktopApplication::ProcessMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {  // is for the loop
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    dispatch(message);
  }
}

void DesktopApplication::MessageBox(std::string_view text, std::string_view caption) {
  if (!somebodyCanSee()) return;
  MessageBoxW(formInFront(), decoded(text).c_str(), decoded(caption).c_str(),
              MB_OK | MB_TASKMODAL | MB_SETFOREGROUND);
}

void DesktopApplication::endProcess(int status) {
  std::fflush(nullptr);
  std::_Exit(status);
}

void runMessageLoop() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) dispatch(message);
}
