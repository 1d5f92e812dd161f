#include "app/qt/window_place.h"

#include <xcb/xcb.h>

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

/// The property WM_NORMAL_HINTS, as the conventions between clients and window managers have it.
struct NormalHints {
  std::uint32_t flags;
  std::array<std::uint32_t, 17> values;
};
constexpr std::uint32_t kResizeIncrement = 1U << 6;
constexpr std::uint32_t kBaseSize = 1U << 8;
constexpr std::uint32_t kWords = sizeof(NormalHints) / sizeof(std::uint32_t);

void dropResizeIncrements(WId window) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* const connection = x11 != nullptr ? x11->connection() : nullptr;
  if (connection == nullptr) return;
  const auto id = static_cast<xcb_window_t>(window);
  const auto question = xcb_get_property(connection, 0, id, XCB_ATOM_WM_NORMAL_HINTS,
                                         XCB_ATOM_WM_SIZE_HINTS, 0, kWords);
  const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> answer(
      xcb_get_property_reply(connection, question, nullptr), &std::free);
  NormalHints hints;
  if (answer == nullptr || xcb_get_property_value_length(answer.get()) != sizeof hints) return;
  std::memcpy(&hints, xcb_get_property_value(answer.get()), sizeof hints);
  if ((hints.flags & kResizeIncrement) == 0) return;
  hints.flags &= ~(kResizeIncrement | kBaseSize);
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_NORMAL_HINTS,
                      XCB_ATOM_WM_SIZE_HINTS, 32, kWords, &hints);
  xcb_flush(connection);
}

}  // namespace

WindowPlace::WindowPlace(QWidget& window, const QWidget* over)
    : QObject(&window), window_(window), over_(over) {
  window.installEventFilter(this);
  centre();
}

bool WindowPlace::eventFilter(QObject* object, QEvent* event) {
  QWindow* const handle = window_.windowHandle();
  if (object == &window_) {
    if (event->type() == QEvent::Show && handle != nullptr) {
      // Increments count from the base, so that none is left over of the size itself.
      handle->setBaseSize(handle->size());
      centreInFrame();
      handle->installEventFilter(this);
    }
  } else if (event->type() == QEvent::Expose || event->type() == QEvent::Move) {
    centreInFrame();
    dropResizeIncrements(handle->winId());
  }
  return false;
}

void WindowPlace::centreInFrame() {
  if (framed_ || window_.windowHandle()->frameMargins().isNull()) return;
  framed_ = true;
  centre();
}

void WindowPlace::centre() {
  const QWindow* const handle = window_.windowHandle();
  const QMargins frame = handle != nullptr ? handle->frameMargins() : QMargins();
  const QRect outer = QRect(QPoint(0, 0), window_.size()).marginsAdded(frame);
  const QRect middle = over_ != nullptr ? over_->frameGeometry()
                                        : QGuiApplication::primaryScreen()->availableGeometry();
  window_.move(middle.center() - QRect(QPoint(0, 0), outer.size()).center());
}
