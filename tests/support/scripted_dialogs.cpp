#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace brontavia::test {

ScriptedDialogs::~ScriptedDialogs() {
  for (const Expected& expected : script_) {
    ADD_FAILURE() << qPrintable(owner_) << ": box not shown: " << qPrintable(expected.Title) << " / "
                  << qPrintable(expected.Text);
  }
}

void ScriptedDialogs::Expect(const QString& title, const QString& text, Meanwhile meanwhile) {
  Expect(title, text, Button::Ok, std::move(meanwhile));
}

void ScriptedDialogs::Expect(const QString& title, const QString& text, Button answer, Meanwhile meanwhile) {
  script_.push_back({.Title = title, .Text = text, .Answer = answer, .While = std::move(meanwhile)});
}

void ScriptedDialogs::ExpectInput(const QString& title, const QString& prompt, const QString& proposal,
                                  const QString& answer, Meanwhile meanwhile) {
  script_.push_back({.Is = Kind::Input,
                     .Title = title,
                     .Text = prompt,
                     .Proposal = proposal,
                     .Typed = answer,
                     .While = std::move(meanwhile)});
}

void ScriptedDialogs::ExpectMenu(const QString& name, const QStringList& captions, const QString& chosen,
                                 Meanwhile meanwhile) {
  script_.push_back(
      {.Is = Kind::Menu, .Title = name, .Text = captions.join(u'|'), .Typed = chosen, .While = std::move(meanwhile)});
}

void ScriptedDialogs::ExpectFile(const FileQuestion& question, const QString& chosen, Meanwhile meanwhile) {
  script_.push_back({.Is = Kind::File,
                     .Title = question.Title,
                     .Text = question.Filter,
                     .Proposal = question.Path,
                     .Typed = chosen,
                     .While = std::move(meanwhile)});
}

std::optional<ScriptedDialogs::Expected> ScriptedDialogs::Next(const QString& title, const QString& text,
                                                               const QString& proposal, Kind kind) {
  Shown << title + u": " + text;
  const std::string where = owner_.toStdString() + ": " + title.toStdString() + " / " + text.toStdString();
  if (script_.empty()) {
    ADD_FAILURE() << "unexpected box of " << where;
    return std::nullopt;
  }
  Expected expected = std::move(script_.front());
  script_.pop_front();
  EXPECT_EQ(expected.Is, kind) << where;
  EXPECT_EQ(expected.Title.toStdString(), title.toStdString()) << where;
  EXPECT_EQ(expected.Text.toStdString(), text.toStdString()) << where;
  EXPECT_EQ(expected.Proposal.toStdString(), proposal.toStdString()) << where;
  return expected;
}

bool ScriptedDialogs::StayOpen(const Meanwhile& meanwhile) {
  ++open_;
  if (meanwhile) meanwhile();
  const bool still_open = closed_ == 0;
  if (!still_open) --closed_;
  --open_;
  emit Answered();
  return still_open;
}

template <typename Answer>
auto ScriptedDialogs::WhileOpen(const Answer& answer) {
  auto answered = decltype(answer()){};
  StayOpen([&] { answered = answer(); });
  return answered;
}

Button ScriptedDialogs::MessageBox(const QString& text, const QString& title, Buttons buttons) {
  const Button refused = buttons == Buttons::YesNo ? Button::No : Button::Cancel;
  if (AnswerBox) {
    Shown << title + u": " + text;
    return WhileOpen([&] { return AnswerBox(title); });
  }
  const auto expected = Next(title, text, {}, Kind::Message);
  if (!expected) return refused;
  const bool yes_no = expected->Answer == Button::Yes || expected->Answer == Button::No;
  EXPECT_EQ(yes_no, buttons == Buttons::YesNo) << title.toStdString();
  return StayOpen(expected->While) ? expected->Answer : refused;
}

QString ScriptedDialogs::InputBox(const QString& prompt, const QString& title, const QString& proposal) {
  if (AnswerInput) {
    Shown << title + u": " + prompt;
    return WhileOpen([&] { return AnswerInput(title); });
  }
  const auto expected = Next(title, prompt, proposal, Kind::Input);
  return expected && StayOpen(expected->While) ? expected->Typed : QString();
}

QString ScriptedDialogs::ChooseFile(const FileQuestion& question) {
  if (AnswerFile) {
    Shown << question.Title;
    return WhileOpen([&] { return AnswerFile(question); });
  }
  const auto expected = Next(question.Title, question.Filter, question.Path, Kind::File);
  return expected && StayOpen(expected->While) ? expected->Typed : QString();
}

std::optional<int> ScriptedDialogs::PopUpMenu(const QString& name, const QString& /*title*/,
                                              const QList<MenuItem>& items) {
  if (AnswerMenu) {
    Shown << name;
    return WhileOpen([&] { return AnswerMenu(items); });
  }
  QStringList captions;
  for (const MenuItem& item : items) {
    if (item.Visible) captions << item.Caption;
  }
  const auto expected = Next(name, captions.join(u'|'), {}, Kind::Menu);
  if (!expected || !StayOpen(expected->While) || expected->Typed.isEmpty()) return std::nullopt;
  for (int index = 0; index < items.size(); ++index) {
    if (items[index].Visible && items[index].Caption == expected->Typed) return index;
  }
  ADD_FAILURE() << "no item " << expected->Typed.toStdString();
  return std::nullopt;
}

void ScriptedDialogs::CloseAll() {
  closed_ = open_;
  if (WhenAllClose) WhenAllClose();
}

}  // namespace brontavia::test
