#include "ui/widget_dialogs.h"

#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

#include "text/qt_text.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

const QString kProgramName = u"Brontavia"_s;
const QString kErrorTitle = u"Error"_s;
constexpr int kInputWidth = 440;

// A text that a peer made long is cut to what fits a screen.
QString ForLabel(const QString& text) {
  constexpr qsizetype kMostCharacters = 1500;
  return ForScreen(Shortened(text, kMostCharacters));
}

// Keeps a box open until one of its buttons is pressed: a question that only Yes or No answers must not be answered by
// a reflex on Esc or the close box.
class OnlyButtonsAnswer : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Close) {
      event->ignore();
      return true;
    }
    return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel);
  }
};

// Shows its proposal selected, with the cursor before it: behind the last character a screen reader finds no line to
// read.
class Question : public QInputDialog {
 public:
  using QInputDialog::QInputDialog;

  void setVisible(bool visible) override {
    QInputDialog::setVisible(visible);
    auto* field = findChild<QLineEdit*>();
    if (!visible || field == nullptr) return;
    const int length = static_cast<int>(field->text().size());
    field->setSelection(length, -length);
  }
};

// Asks about a file that is there already before it is taken; the dialog stays until it may be. Qt's own question would
// not close with the window.
class SaveDialog : public QFileDialog {
 public:
  using MayReplace = std::function<bool(const QString& name)>;

  SaveDialog(QWidget& parent, MayReplace may_replace) : QFileDialog(&parent), may_replace_(std::move(may_replace)) {
    setAcceptMode(AcceptSave);
    setOption(DontConfirmOverwrite);
  }

 protected:
  void accept() override {
    const QFileInfo file(selectedFiles().value(0));
    const bool there = file.exists() && !file.isDir();  // a folder is entered
    if (!there || may_replace_(file.fileName())) QFileDialog::accept();
  }

 private:
  MayReplace may_replace_;
};

QMessageBox::StandardButtons StandardButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(const QString& title, Buttons buttons) {
  if (title == kErrorTitle) return QMessageBox::Critical;
  return buttons == Buttons::Ok ? QMessageBox::Information : QMessageBox::Question;
}

// "label|pattern|label|pattern" as the labels alone: they end in their patterns.
QStringList NameFilters(const QString& filter) {
  QStringList labels;
  const QStringList parts = filter.split(u'|');
  for (qsizetype part = 0; part < parts.size(); part += 2) labels << parts[part];
  return labels;
}

// A box that was closed without a button counts as refused.
Button ButtonOf(int result, Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return Button::Ok;
    case Buttons::OkCancel:
      return result == QMessageBox::Ok ? Button::Ok : Button::Cancel;
    case Buttons::YesNo:
      return result == QMessageBox::Yes ? Button::Yes : Button::No;
  }
  return Button::Cancel;
}

}  // namespace

Button WidgetDialogs::MessageBox(const QString& text, const QString& title, Buttons buttons) {
  const auto box = std::make_unique<QMessageBox>(&parent_);
  box->setWindowTitle(title.isEmpty() ? kProgramName : title);
  box->setTextFormat(Qt::PlainText);
  box->setText(ForLabel(text));
  box->setIcon(IconOf(title, buttons));
  box->setStandardButtons(StandardButtonsOf(buttons));
  box->setDefaultButton(buttons == Buttons::YesNo ? QMessageBox::Yes : QMessageBox::Ok);
  if (buttons == Buttons::YesNo) box->installEventFilter(new OnlyButtonsAnswer(box.get()));
  return ButtonOf(Run(*box), buttons);
}

QString WidgetDialogs::InputBox(const QString& prompt, const QString& title, const QString& proposal) {
  const auto box = std::make_unique<Question>(&parent_);
  box->setWindowTitle(title);
  box->setInputMode(QInputDialog::TextInput);
  box->setLabelText(ForLabel(prompt));
  box->setTextValue(proposal);
  for (QLabel* label : box->findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  box->resize(kInputWidth, box->sizeHint().height());
  return Run(*box) == QDialog::Accepted ? box->textValue() : QString();
}

QString WidgetDialogs::OpenFile(const FileQuestion& question) {
  QFileDialog dialog(&parent_);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return AskForFile(dialog, question);
}

QString WidgetDialogs::SaveFile(const FileQuestion& question) {
  SaveDialog dialog(parent_, [&](const QString& name) {
    QMessageBox box(&dialog);
    box.setWindowTitle(question.Title);
    box.setTextFormat(Qt::PlainText);
    box.setText(ForLabel(u"El archivo %1 ya existe. ¿Desea reemplazarlo?"_s.arg(name)));
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    return Run(box) == QMessageBox::Yes;
  });
  return AskForFile(dialog, question);
}

QString WidgetDialogs::AskForFile(QFileDialog& dialog, const FileQuestion& question) {
  // Of the system's own dialogs not all can be closed from outside, and CloseAll has to close this one.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setWindowTitle(question.Title);
  dialog.setNameFilters(NameFilters(question.Filter));
  const QFileInfo proposed(question.Path);
  dialog.setDirectory(proposed.isDir() ? question.Path : proposed.path());
  if (!proposed.isDir()) dialog.selectFile(question.Path);
  return Run(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<int> WidgetDialogs::PopUpMenu(const QString& name, const QString& title, const QList<MenuItem>& items) {
  const auto menu = std::make_unique<QMenu>(&parent_);
  const QPointer<QMenu> outer = std::exchange(menu_, menu.get());
  menu->setObjectName(name);
  menu->setAccessibleName(QString(title).remove(u'&'));
  QAction* first = nullptr;
  for (const MenuItem& item : items) {
    QAction* action = menu->addAction(item.Caption);
    action->setObjectName(item.Name);
    action->setVisible(item.Visible);
    action->setEnabled(item.Visible);
    if (first == nullptr && item.Visible) first = action;
  }
  // Queued: until then the menu is still on screen.
  connect(menu.get(), &QMenu::aboutToHide, this, &Dialogs::Answered, Qt::QueuedConnection);
  menu->setActiveAction(first);  // so that Enter chooses without an arrow key
  const QWidget& focus = parent_.focusWidget() == nullptr ? parent_ : *parent_.focusWidget();
  const QRect cursor = focus.inputMethodQuery(Qt::ImCursorRectangle).toRect();
  const auto chosen = menu->actions().indexOf(menu->exec(focus.mapToGlobal(cursor.center())));
  menu_ = outer;
  if (chosen < 0) return std::nullopt;
  return static_cast<int>(chosen);
}

int WidgetDialogs::Run(QDialog& dialog) {
  if (menu_) menu_->close();  // it would keep keys and mouse from the box
  open_.append(&dialog);
  connect(&dialog, &QDialog::finished, this, &Dialogs::Answered);
  const int result = dialog.exec();
  open_.removeAll(&dialog);
  return result;
}

bool WidgetDialogs::IsShowing() const {
  if (menu_ && menu_->isVisible()) return true;
  return std::any_of(open_.begin(), open_.end(), [](const auto& dialog) { return dialog && dialog->isVisible(); });
}

void WidgetDialogs::Dismiss(const QString& text) {
  for (const auto& dialog : QList(open_)) {
    const auto* box = qobject_cast<QMessageBox*>(dialog);
    if (box != nullptr && box->text() == ForLabel(text)) box->defaultButton()->click();
  }
}

void WidgetDialogs::CloseAll() {
  if (menu_) menu_->close();
  for (const auto& dialog : QList(open_)) {
    if (dialog) dialog->reject();
  }
}

}  // namespace brontavia
