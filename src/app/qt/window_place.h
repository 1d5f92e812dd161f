#pragma once

#include <QPointer>
#include <QWidget>

/// Keeps a window of fixed size where it belongs: with its frame in the middle of `over`, or of the
/// screen without one. How large the frame is, a window manager tells once it has given it.
/// On X11 it also takes back the resize increments that the framework asks for at fractional
/// scales; a window manager would round the window down to them.
class WindowPlace : public QObject {
 public:
  WindowPlace(QWidget& window, const QWidget* over);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void centre();
  void centreInFrame();  // once the frame is known

  QWidget& window_;
  QPointer<const QWidget> over_;
  bool framed_ = false;
};
