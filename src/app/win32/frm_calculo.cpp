#include "app/win32/frm_calculo.h"

#include <string>

#include "app/desktop/calculate.h"
#include "app/win32/principal.h"
#include "core/platform.h"
#include "core/wide_text.h"

using namespace input_form;

TfrmCalculo* frmCalculo = nullptr;

namespace {
constexpr int kCalcularId = 101;
constexpr int kCerrarId = 102;
}  // namespace

TfrmCalculo::TfrmCalculo(HWND owner)
    : FormWindow({kTitle, kClient, kDpi, WS_POPUP | WS_CAPTION | WS_SYSMENU, COLOR_BTNFACE}, owner),
      Label1_(addChild(WC_STATICW, kLabel, SS_LEFTNOWORDWRAP | SS_CENTERIMAGE)),
      edDatos_(addChild(WC_EDITW, {}, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL)),
      btnCalcular_(addChild(WC_BUTTONW, kCalculate, WS_TABSTOP, kCalcularId)),
      btnCerrar_(addChild(WC_BUTTONW, input_form::kClose, WS_TABSTOP, kCerrarId)) {
  placeAll();
}

void TfrmCalculo::layOut() {
  font_ = makeFont(kFont, kDpi, dpi());
  const struct {
    HWND child;
    FormPlace design;
  } parts[] = {{Label1_, kLabelPlace},
               {edDatos_, kEditPlace},
               {btnCalcular_, kCalculatePlace},
               {btnCerrar_, kClosePlace}};
  for (const auto& part : parts) {
    setFont(part.child, font_);
    place(part.child, at(part.design, kDpi, dpi()));
  }
}

void TfrmCalculo::btnCalcularClick() {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edDatos_)), L'\0');
  GetWindowTextW(edDatos_, text.data(), static_cast<int>(text.size()) + 1);
  calculate(toUtf8(text), [&](const RunPaths& paths) {
    bool open = true;
    TPrincipal progress(handle(), paths.dataFile, paths.typologyFile, paths.outputFile,
                        paths.markerFile, [&] { open = false; });
    EnableWindow(handle(), FALSE);  // modal
    progress.show();
    while (open) {
      WaitMessage();
      Application->ProcessMessages();
    }
    EnableWindow(handle(), TRUE);
  });
}

void TfrmCalculo::btnCerrarClick() { ShowWindow(handle(), SW_HIDE); }

LRESULT TfrmCalculo::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wide) == kCalcularId) btnCalcularClick();
      if (LOWORD(wide) == kCerrarId) btnCerrarClick();
      return 0;
    case WM_CLOSE:
      btnCerrarClick();
      return 0;
    default:
      return otherwise(message, wide, longer);
  }
}
