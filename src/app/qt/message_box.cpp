#include "app/qt/message_box.h"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <memory>

#include "app/desktop/forms.h"
#include "app/qt/drawn_form.h"
#include "app/qt/window_place.h"
#include "core/cp1252.h"

namespace {

constexpr QChar kBreakHere(0x200B);  // a place to break a line, without width

std::string_view openText;

QString decoded(std::string_view text) { return QString::fromStdString(cp1252::toUtf8(text)); }

/// Lines break at blanks. A path, or a name as long as one, gets further places to break: behind
/// its separators. What is left too long breaks anywhere.
QString breakable(const QString& text) {
  constexpr int kLongestWord = 30;
  QString result;
  for (qsizetype start = 0; start < text.size();) {
    qsizetype end = start;
    while (end < text.size() && !text[end].isSpace()) ++end;
    const QStringView word = QStringView(text).mid(start, end - start);
    const bool isPath = word.contains('/') || word.contains('\\') || word.size() > kLongestWord;
    for (qsizetype i = 0; i < word.size(); ++i) {
      result += word[i];
      // The root's slash stays with what follows it.
      if (isPath && i > 0 && QStringView(u"/\\-_.").contains(word[i])) result += kBreakHere;
    }
    if (end < text.size()) result += text[end++];
    start = end;
  }
  return result;
}

QString withoutBreaks(QString text) { return text.remove(kBreakHere); }

/// The text of a box: it looks like a label, and what is copied from it is what was said.
class Message : public QTextEdit {
 public:
  using QTextEdit::QTextEdit;

 protected:
  QMimeData* createMimeDataFromSelection() const override {
    auto* copied = new QMimeData;
    QString selected = textCursor().selectedText();
    copied->setText(withoutBreaks(selected.replace(QChar::ParagraphSeparator, '\n')));
    return copied;
  }
};

Message* newMessage(const QString& text, QWidget* parent) {
  auto* message = new Message(parent);
  message->setObjectName("message");
  message->setReadOnly(true);
  message->setTextInteractionFlags(Qt::TextSelectableByMouse);
  message->setFocusPolicy(Qt::NoFocus);
  message->setFrameShape(QFrame::NoFrame);
  message->viewport()->setAutoFillBackground(false);
  message->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  message->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  message->document()->setDocumentMargin(0);
  message->setPlainText(breakable(text));
  QTextBlockFormat lines;
  lines.setLineHeight(message_box::kLineHeight, QTextBlockFormat::ProportionalHeight);
  QTextCursor all(message->document());
  all.select(QTextCursor::Document);
  all.mergeBlockFormat(lines);
  return message;
}

/// Makes room for the whole text in lines of `least` to kTextWidth, scrolling one that would be
/// higher than most of the screen.
void fit(Message& message, int least) {
  const QFontMetrics letters(message.font());
  int widest = 0;
  for (const QString& line : message.toPlainText().split('\n')) {
    widest = std::max(widest, letters.horizontalAdvance(line) + 1);
  }
  const int width = std::clamp(widest, least, std::max(least, message_box::kTextWidth));
  // A document of its own, because the widget sets the other one for the width that it has now.
  const std::unique_ptr<QTextDocument> document(message.document()->clone());
  document->setTextWidth(width);
  const int height = static_cast<int>(std::ceil(document->size().height()));
  const int most = message.screen()->availableGeometry().height() * 2 / 3;
  message.setFixedSize(width, std::min(height, most));
  message.setVerticalScrollBarPolicy(height > most ? Qt::ScrollBarAlwaysOn
                                                   : Qt::ScrollBarAlwaysOff);
}

/// The form the box belongs to: a box without one could end up behind the form that it blocks.
QWidget* formInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* form : QApplication::topLevelWidgets()) {
    if (form->isVisible()) return form;
  }
  return nullptr;
}

/// Dismisses a box whose window another client has destroyed: nobody could any more.
class DestroyedWindow : public QAbstractNativeEventFilter {
 public:
  explicit DestroyedWindow(QDialog& box) : box_(box) { qApp->installNativeEventFilter(this); }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override {
    if (type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    constexpr int kSentByAClient = 0x80;
    if ((event->response_type & ~kSentByAClient) != XCB_DESTROY_NOTIFY) return false;
    const auto* destroyed = static_cast<const xcb_destroy_notify_event_t*>(message);
    if (destroyed->window == box_.internalWinId()) box_.reject();
    return false;
  }

 private:
  QDialog& box_;
};

}  // namespace

MessageBoxForm::MessageBoxForm(QWidget* owner, std::string_view text, std::string_view caption)
    : QDialog(owner), text_(decoded(text)) {
  openText = text;
  setWindowTitle(decoded(caption));
  setWindowModality(Qt::ApplicationModal);
  setFont(toQt(message_box::kFont, message_box::kFontDpi));

  message = newMessage(text_, this);
  // A short text must not make the box so narrow that its caption is cut.
  const int captionWidth = fontMetrics().horizontalAdvance(windowTitle());
  fit(static_cast<Message&>(*message),
      captionWidth + message_box::kCaptionsFrame - 2 * message_box::kMargin);

  button = new QPushButton(toQt(message_box::kButton), this);
  button->setDefault(true);
  button->setMinimumSize(message_box::kButtonSize.width, message_box::kButtonSize.height);
  connect(button, &QPushButton::clicked, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  constexpr int kMargin = message_box::kMargin;
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->addWidget(message);
  layout->addWidget(button, 0, Qt::AlignRight);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->activate();
  adjustSize();
  new WindowPlace(*this, owner);
}

MessageBoxForm::~MessageBoxForm() { openText = {}; }

void MessageBoxForm::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) return QDialog::keyPressEvent(event);
  if (message->textCursor().hasSelection()) {
    message->copy();
  } else {
    QApplication::clipboard()->setText(text());
  }
}

void showMessageBox(std::string_view text, std::string_view caption) {
  MessageBoxForm box(formInFront(), text, caption);
  const DestroyedWindow destroyed(box);
  box.exec();
}

std::string_view textOfOpenBox() { return openText; }
