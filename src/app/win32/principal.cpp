#include "app/win32/principal.h"

#include <utility>

using namespace progress_form;

TPrincipal* Principal = nullptr;

namespace {

constexpr UINT_PTR kTimer1 = 1;

constexpr COLORREF toWindows(Colour colour) { return RGB(colour.red, colour.green, colour.blue); }

/// The logo's rasters are resources whose numbers are their scales.
Bitmap loadLogo(int scale) {
  return Bitmap(static_cast<HBITMAP>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(scale),
                                                IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}

}  // namespace

int ProgressBar::GetPosition() const {
  return static_cast<int>(SendMessageW(control_, PBM_GETPOS, 0, 0));
}

void ProgressBar::SetPosition(int position) {
  SendMessageW(control_, PBM_SETPOS, static_cast<WPARAM>(bounded(position)), 0);
}

TPrincipal::TPrincipal(HWND owner, const std::string& item0, const std::string& item1,
                       const std::string& item2, const std::string& item3,
                       std::function<void()> closed)
    // A title and nothing to click on it.
    : FormWindow({kTitle, kClient, kDpi, WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN, COLOR_WINDOW},
                 owner),
      run_({item0, item1, item2, item3}),
      closed_(std::move(closed)),
      labels_(),
      pbBarra_(addChild(PROGRESS_CLASSW, {}, PBS_SMOOTH)) {
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i] = addChild(WC_STATICW, kStages[i].caption, SS_LEFTNOWORDWRAP | SS_NOPREFIX);
  }
  // A bar in the style of the system has its colour too. (Empty names would leave it its style.)
  // The edge of one without is of two colours, one of them lost on white: the form draws another.
  SetWindowTheme(pbBarra_.handle(), L" ", L" ");
  SetWindowLongPtrW(pbBarra_.handle(), GWL_EXSTYLE, 0);
  SendMessageW(pbBarra_.handle(), PBM_SETRANGE32, 0, TProgressBar::kMaximum);
  SendMessageW(pbBarra_.handle(), PBM_SETBARCOLOR, 0, static_cast<LPARAM>(toWindows(kBarFilled)));
  SendMessageW(pbBarra_.handle(), PBM_SETBKCOLOR, 0, static_cast<LPARAM>(toWindows(kBarEmpty)));
  placeAll();
}

void TPrincipal::layOut() {
  stage_ = makeFont(kStageFont, kDpi, dpi());
  boldStage_ = makeFont(kStageFont, kDpi, dpi(), true);
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    setFont(labels_[i], kStages[i].bold ? boldStage_ : stage_);
    place(labels_[i], stagePlace(i, dpi()));
  }
  layOutBar();
  logo_ = loadLogo(logoScale(dpi()));
}

/// The control leaves a pixel free around what it fills. That is cut off, and the form's edge is
/// seen there.
void TPrincipal::layOutBar() {
  const FormPlace bar = at(kBar, kDpi, dpi());
  const int inset = barEdgeWidth(dpi()) - 1;
  const int width = bar.width - 2 * inset;
  const int height = bar.height - 2 * inset;
  place(pbBarra_.handle(), {bar.left + inset, bar.top + inset, width, height});
  // The region is the system's from here on.
  SetWindowRgn(pbBarra_.handle(), CreateRectRgn(1, 1, width - 1, height - 1), TRUE);
}

void TPrincipal::show() {
  FormWindow::show();
  FormShow();
}

void TPrincipal::FormShow() { SetTimer(handle(), kTimer1, kTimerInterval, nullptr); }

void TPrincipal::Timer1Timer() {
  if (!run_.tick()) return;
  KillTimer(handle(), kTimer1);
  run_.run(pbBarra_);
  DestroyWindow(handle());
}

void TPrincipal::paintLogo(HDC paper) const {
  const FormPlace place = at(kLogo, kDpi, dpi());
  BITMAP picture = {};
  GetObjectW(logo_.get(), sizeof picture, &picture);
  const HDC memory = CreateCompatibleDC(paper);
  const HGDIOBJ before = SelectObject(memory, logo_.get());
  SetStretchBltMode(paper, HALFTONE);
  StretchBlt(paper, place.left, place.top, place.width, place.height, memory, 0, 0, picture.bmWidth,
             picture.bmHeight, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
}

void TPrincipal::paintBarsEdge(HDC paper) const {
  const FormPlace bar = at(kBar, kDpi, dpi());
  const RECT edge = {bar.left, bar.top, bar.left + bar.width, bar.top + bar.height};
  const Brush brush(CreateSolidBrush(toWindows(kBarEdge)));
  FillRect(paper, &edge, brush.get());  // the bar is left out
}

LRESULT TPrincipal::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_TIMER:
      Timer1Timer();
      return 0;
    case WM_CLOSE:
      if (run_.isOver()) break;
      return 0;
    case WM_DESTROY:
      closed_();
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT painting;
      const HDC paper = BeginPaint(handle(), &painting);
      paintLogo(paper);
      paintBarsEdge(paper);
      EndPaint(handle(), &painting);
      return 0;
    }
    case WM_ERASEBKGND: {  // the panel
      RECT inner;
      GetClientRect(handle(), &inner);
      FillRect(reinterpret_cast<HDC>(wide), &inner,
               static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
      return 1;
    }
    case WM_CTLCOLORSTATIC:
      SetTextColor(reinterpret_cast<HDC>(wide), toWindows(kStageColour));
      SetBkColor(reinterpret_cast<HDC>(wide), toWindows(kPanel));
      return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    default:
      break;
  }
  return otherwise(message, wide, longer);
}
