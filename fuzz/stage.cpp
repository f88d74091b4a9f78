#include "fuzz/stage.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <utility>

#include "fuzz/require.h"
#include "fuzz/scripted_events.h"
#include "text/wire_encoding.h"

namespace brontavia::fuzz {
namespace {

constexpr int kRequest = 1;
// Each handler on the stack has one box or wait open at most: eight reads, what the user did, his wish to close the
// window and a request for connection.
constexpr std::size_t kMostBoxes = 11;

constexpr int kLongestPause = 16;  // seconds, in one step

QString Typed(const std::string& text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

// A file of its own for the process. Its content is written when it is to be opened.
QString PositionFile(const std::optional<std::string>& content) {
  static const QTemporaryDir directory;
  QString path = directory.filePath(QStringLiteral("position.fen"));
  if (content) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(content->data(), static_cast<qint64>(content->size()));
  }
  return path;
}

}  // namespace

int NumberAt(const std::string& text, std::size_t position, int count) {
  if (position >= text.size()) return 0;
  const auto number = static_cast<unsigned char>(text[position] - 'a');
  return number % count;
}

void Silence::Break() const { Require(!silent_, "a window that has ended is silent"); }

// ---- The connection ----

std::optional<QString> ScriptedConnection::Listen(std::int32_t /*port*/) {
  silence_.Break();
  if (RefusesToListen) return QStringLiteral("refused");
  state_ = ConnectionState::Listening;
  return std::nullopt;
}

bool ScriptedConnection::Accept(int /*request*/) {
  silence_.Break();
  if (!requester_is_there_) return false;
  requested_ = false;
  state_ = ConnectionState::Connected;
  return true;
}

void ScriptedConnection::Reject(int /*request*/) { requested_ = requester_is_there_ = false; }

void ScriptedConnection::Connect(const QString& /*host*/, std::int32_t /*port*/) {
  silence_.Break();
  state_ = ConnectionState::Connecting;
}

void ScriptedConnection::Close() {
  state_ = ConnectionState::Closed;
  arrived_.clear();
  requested_ = requester_is_there_ = unacknowledged_ = broken_ = false;
}

bool ScriptedConnection::SendData(const QString& text) {
  silence_.Break();
  if (state_ != ConnectionState::Connected) return false;
  Sent.push_back(text);
  unacknowledged_ = true;
  return true;
}

QString ScriptedConnection::GetData() { return std::exchange(arrived_, {}); }

void ScriptedConnection::Receive(const QString& text) {
  if (state_ != ConnectionState::Connected || text.isEmpty()) return;
  arrived_ += text;
  emit DataArrival();
}

void ScriptedConnection::Ask() {
  if (state_ != ConnectionState::Listening || requested_) return;
  requested_ = requester_is_there_ = true;
  emit ConnectionRequest(kRequest);
}

void ScriptedConnection::Withdraw() { requester_is_there_ = false; }

void ScriptedConnection::Establish() {
  if (state_ == ConnectionState::Connecting) state_ = ConnectionState::Connected;
}

void ScriptedConnection::Break() {
  if (state_ != ConnectionState::Connected) return;
  state_ = ConnectionState::Closed;
  unacknowledged_ = false;
  broken_ = true;
}

void ScriptedConnection::Notice() {
  Break();
  if (std::exchange(broken_, false)) emit Lost();
}

void ScriptedConnection::Acknowledge() {
  if (!hold_ && std::exchange(unacknowledged_, false)) emit SendComplete();
}

// ---- Boxes ----

const ScriptedBoxes::Open* ScriptedBoxes::Topmost() const {
  const auto open = std::find_if(open_.rbegin(), open_.rend(), [](const Open* box) { return !box->Answer; });
  return open == open_.rend() ? nullptr : *open;
}

std::string ScriptedBoxes::AnswerTo(Kind kind, const QString& text) {
  silence_.Break();
  Open box{.Is = kind, .Text = text};
  open_.push_back(&box);
  Require(open_.size() <= kMostBoxes, "no handler opens a box under its own");
  while (!box.Answer) Require(play_() || box.Answer, "a box closes with its window");
  open_.pop_back();
  return *box.Answer;
}

void ScriptedBoxes::Answer(const std::string& text) {
  const auto open = std::find_if(open_.rbegin(), open_.rend(), [](const Open* box) { return !box->Answer; });
  if (open == open_.rend()) return;
  (*open)->Answer = text;
  emit Answered();
}

Button ScriptedBoxes::MessageBox(const QString& text, const QString& /*title*/, Buttons buttons) {
  const bool agreed = AnswerTo(Kind::Message, text).starts_with('y');
  if (buttons == Buttons::YesNo) return agreed ? Button::Yes : Button::No;
  return agreed ? Button::Ok : Button::Cancel;
}

QString ScriptedBoxes::InputBox(const QString& /*prompt*/, const QString& /*title*/, const QString& /*proposal*/) {
  return Typed(AnswerTo(Kind::Input));
}

QString ScriptedBoxes::OpenFile(const FileQuestion& /*question*/) {
  const std::string content = AnswerTo(Kind::File);
  return content.empty() ? QString() : PositionFile(content);
}

QString ScriptedBoxes::SaveFile(const FileQuestion& /*question*/) {
  return AnswerTo(Kind::File).empty() ? QString() : PositionFile(std::nullopt);
}

std::optional<int> ScriptedBoxes::PopUpMenu(const QString& /*name*/, const QString& /*title*/,
                                            const QList<MenuItem>& items) {
  const std::string answer = AnswerTo(Kind::Menu);
  if (answer.empty()) return std::nullopt;
  const int chosen = NumberAt(answer, 0, static_cast<int>(items.size()));
  return items.at(chosen).Visible ? std::optional(chosen) : std::nullopt;
}

void ScriptedBoxes::Dismiss(const QString& text) {
  for (Open* box : open_) {
    if (box->Answer || box->Is != Kind::Message || box->Text != text) continue;
    box->Answer = "y";
    emit Answered();
  }
}

void ScriptedBoxes::CloseAll() {
  silence_.Begin();
  for (Open* box : open_) {
    if (!box->Answer) box->Answer = "";
  }
  emit Answered();
}

// ---- The stage ----

Stage::Stage(Role role, Source next)
    : next_(std::move(next)),
      Connection(silence_),
      Boxes(silence_, [this] { return PlayStep(); }),
      Screen(silence_),
      Values{.PlayerRole = role} {
  ScriptedEvents::Instance();  // before any timer
}

Stage::~Stage() { QCoreApplication::removePostedEvents(nullptr); }

void Stage::Play() {
  ScriptedEvents::Instance().WhenIdle = [this] { Require(PlayStep(), "every wait ends with its window"); };
  Settle();
  Check();
  while (!Finished) Require(PlayStep() || Finished, "a window can be closed");
}

bool Stage::PlayStep() {
  if (Finished) return false;
  const auto step = next_();
  if (!step) return false;
  if (!PerformCommon(*step)) Perform(*step);
  Settle();
  Check();
  return true;
}

bool Stage::PerformCommon(const Step& step) {
  switch (step.What) {
    case 'r':
      Connection.Receive(FromWire(QByteArrayView(step.Text.data(), static_cast<qsizetype>(step.Text.size()))));
      return true;
    case 'a':
      Boxes.Answer(step.Text);
      return true;
    case 'h':
      Connection.HoldAcknowledgements(!Connection.HoldsAcknowledgements());
      return true;
    case 's':
      ScriptedEvents::Instance().Pass(std::chrono::seconds(1 + NumberAt(step.Text, 0, kLongestPause)));
      return true;
    case 'q':
      Connection.Ask();
      return true;
    case 'w':
      Connection.Withdraw();
      return true;
    case 'o':
      Connection.Establish();
      return true;
    case 'g':
      Connection.Break();
      return true;
    case 'l':
      Connection.Notice();
      return true;
    default:
      return false;
  }
}

void Stage::Settle() {
  QCoreApplication::sendPostedEvents();
  Connection.Acknowledge();
}

}  // namespace brontavia::fuzz
