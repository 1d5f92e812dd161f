#include "app/win32/form_window.h"

#include <algorithm>
#include <cstdlib>

#include "core/platform.h"
#include "core/report_error.h"
#include "core/wide_text.h"

namespace {

constexpr wchar_t kClass[] = L"tip2bdl";
constexpr int kIcon = 1;  // in the program's resources
constexpr int kAnySize =
    400;  // until the frame has been measured, around a client area that it leaves

void registerClass(WNDPROC procedure) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  WNDCLASSEXW form = {};
  form.cbSize = sizeof form;
  form.lpfnWndProc = procedure;
  form.hInstance = program;
  form.hIcon = static_cast<HICON>(
      LoadImageW(program, MAKEINTRESOURCEW(kIcon), IMAGE_ICON, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
  form.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
  form.lpszClassName = kClass;
  RegisterClassExW(&form);  // a second time is without effect
}

int forcedDpi() {
  wchar_t value[8];
  const DWORD length = GetEnvironmentVariableW(L"TIP2BDL_DPI", value, 8);
  return length > 0 && length < 8 ? std::clamp(_wtoi(value), 48, 960) : 0;
}

LONG widthOf(const RECT& rectangle) { return rectangle.right - rectangle.left; }
LONG heightOf(const RECT& rectangle) { return rectangle.bottom - rectangle.top; }

/// Fonts of pixels, which Windows has of old, do not count: they are of a few sizes.
bool isInstalled(const std::wstring& family) {
  LOGFONTW wanted = {};
  wanted.lfCharSet = DEFAULT_CHARSET;
  family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  bool found = false;
  const auto take = [](const LOGFONTW*, const TEXTMETRICW*, DWORD kind, LPARAM result) -> int {
    const bool isOutline = (kind & TRUETYPE_FONTTYPE) != 0;
    *reinterpret_cast<bool*>(result) = isOutline;
    return isOutline ? 0 : 1;
  };
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &wanted, take, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

}  // namespace

FormWindow::FormWindow(const Design& design, HWND owner) : design_(design) {
  registerClass(&FormWindow::procedure);
  handle_ =
      CreateWindowExW(WS_EX_CONTROLPARENT, kClass, toWide(design.title).c_str(), design.style, 0, 0,
                      kAnySize, kAnySize, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
  // Nobody could see the message.
  if (handle_ == nullptr) Application->Terminate(kExitError);
  // Messages come to this object from here on; those of the creation are the system's.
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

FormWindow::~FormWindow() {
  if (handle_ == nullptr) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

void FormWindow::show() {
  ShowWindow(handle_, SW_SHOW);
  UpdateWindow(handle_);
}

int FormWindow::dpi() const {
  static const int forced = forcedDpi();
  return forced != 0 ? forced : static_cast<int>(GetDpiForWindow(handle_));
}

HWND FormWindow::addChild(const wchar_t* windowClass, std::string_view text, DWORD style, int id) {
  return CreateWindowExW(0, windowClass, toWide(text).c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0,
                         0, 0, handle_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

void FormWindow::place(HWND child, const FormPlace& pixels) const {
  SetWindowPos(child, nullptr, pixels.left, pixels.top, pixels.width, pixels.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::setFont(HWND child, const Font& font) const {
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}

void FormWindow::placeAll() {
  takeClientSize();
  layOut();
  centre();
}

void FormWindow::takeClientSize() {
  RECT outer;
  RECT inner;
  GetWindowRect(handle_, &outer);
  GetClientRect(handle_, &inner);
  const LONG frameWidth = widthOf(outer) - widthOf(inner);
  const LONG frameHeight = heightOf(outer) - heightOf(inner);
  SetWindowPos(handle_, nullptr, 0, 0,
               frameWidth + toPixels(design_.client.width, design_.dpi, dpi()),
               frameHeight + toPixels(design_.client.height, design_.dpi, dpi()),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::centre() {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(handle_, MONITOR_DEFAULTTOPRIMARY), &monitor);
  RECT outer;
  GetWindowRect(handle_, &outer);
  const RECT& work = monitor.rcWork;
  SetWindowPos(handle_, nullptr, work.left + (widthOf(work) - widthOf(outer)) / 2,
               work.top + (heightOf(work) - heightOf(outer)) / 2, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT FormWindow::otherwise(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_DPICHANGED: {
      const RECT& suggested = *reinterpret_cast<const RECT*>(longer);
      SetWindowPos(handle_, nullptr, suggested.left, suggested.top, widthOf(suggested),
                   heightOf(suggested), SWP_NOZORDER | SWP_NOACTIVATE);
      takeClientSize();
      layOut();
      InvalidateRect(handle_, nullptr, TRUE);
      return 0;
    }
    case WM_ERASEBKGND: {
      RECT inner;
      GetClientRect(handle_, &inner);
      FillRect(reinterpret_cast<HDC>(wide), &inner, GetSysColorBrush(design_.background));
      return 1;
    }
    default:
      return DefWindowProcW(handle_, message, wide, longer);
  }
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form == nullptr) return DefWindowProcW(window, message, wide, longer);
  if (message == WM_NCDESTROY) form->handle_ = nullptr;
  return form->handle_ == nullptr ? DefWindowProcW(window, message, wide, longer)
                                  : form->onMessage(message, wide, longer);
}

Font makeFont(const FormFont& design, int designDpi, int dpi, bool bold) {
  LOGFONTW font = {};
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                 static_cast<UINT>(dpi)) != 0) {
    font = metrics.lfMessageFont;
  }
  for (const std::string_view family : design.families) {
    const std::wstring name = toWide(family);
    if (name.empty() || !isInstalled(name)) continue;
    font.lfFaceName[name.copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
    break;
  }
  if (design.pixels > 0) font.lfHeight = -toPixels(design.pixels, designDpi, dpi);
  font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
  font.lfQuality = CLEARTYPE_QUALITY;
  return Font(CreateFontIndirectW(&font));
}
