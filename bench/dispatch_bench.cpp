// How long a session takes from a read to everything that it sets off, without a network and without a screen.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <utility>

#include "games/three_in_row/three_in_row_flow.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

// Delivers recorded texts; what is sent goes nowhere.
class RecordedConnection : public Connection {
 public:
  [[nodiscard]] ConnectionState State() const override { return ConnectionState::Connected; }
  [[nodiscard]] QList<OwnAddress> OwnAddresses() const override { return {}; }
  std::optional<QString> Listen(std::int32_t /*port*/) override { return std::nullopt; }
  bool Accept(int /*request*/) override { return true; }
  void Reject(int /*request*/) override {}
  void Connect(const QString& /*host*/, std::int32_t /*port*/) override {}
  void Close() override {}
  bool SendData(const QString& text) override {
    benchmark::DoNotOptimize(text.size());
    return true;
  }
  void Flush() override {}
  QString GetData() override { return std::exchange(read_, {}); }

  void Deliver(const QString& text) {
    read_ = text;
    emit DataArrival();
  }

 private:
  QString read_;
};

// Answers every box as if it had been cancelled, which leaves the proposals standing.
class SilentDialogs : public Dialogs {
 public:
  Button MessageBox(const QString& /*text*/, const QString& /*title*/, Buttons /*buttons*/) override {
    return Button::Ok;
  }
  QString InputBox(const QString& /*prompt*/, const QString& /*title*/, const QString& /*proposal*/) override {
    return {};
  }
  QString OpenFile(const FileQuestion& /*question*/) override { return {}; }
  QString SaveFile(const FileQuestion& /*question*/) override { return {}; }
  std::optional<int> PopUpMenu(const QString& /*name*/, const QString& /*title*/,
                               const QList<MenuItem>& /*items*/) override {
    return {};
  }
  void Dismiss(const QString& /*text*/) override {}
  void CloseAll() override {}
  [[nodiscard]] bool IsShowing() const override { return false; }
};

class BlindScreen : public Screen {
 public:
  void SetCaption(const QString& caption) override { Take(caption); }
  void ShowFrame(Frame /*frame*/, bool /*visible*/) override {}
  void SetText(Box /*box*/, const QString& text) override { Take(text); }
  void AppendText(Box /*box*/, const QString& /*text*/) override {}
  void AddMessage(const QString& line) override { Take(line); }
  void Announce(const QString& sentence) override { Take(sentence); }
  void PlaySound(MediaPlayer /*player*/, const QString& /*file*/) override {}
  void ShowScoreboard(const Scoreboard& /*scoreboard*/) override {}
  void ShowKeys(const KeyHints& /*keys*/) override {}
  void ShowBoardCaption(const QString& /*caption*/, PlayerSign /*owner*/) override {}
  void Beep() override {}

 private:
  static void Take(const QString& text) { benchmark::DoNotOptimize(text.size()); }
};

// A client whose session has begun; the server is to move.
struct Client {
  Client() {
    Values.PlayerRole = Role::Client;
    Flow.Load();
    Connection.Deliver(u"Solicitud aceptada|TER"_s);
    Connection.Deliver(u"Nombre|Servidor"_s);
    Connection.Deliver(u"Turnodef|00"_s);
  }

  RecordedConnection Connection;
  SilentDialogs Dialogs;
  BlindScreen Screen;
  ProcessValues Values;
  ThreeInRowFlow Flow{{.Connection = Connection, .Dialogs = Dialogs, .Screen = Screen, .Values = Values}, 1};
};

void Read(benchmark::State& state, const QString& text) {
  Client client;
  for (auto _ : state) client.Connection.Deliver(text);
  state.SetBytesProcessed(state.iterations() * text.size());
}

BENCHMARK_CAPTURE(Read, Move, u"Jug|-1|4"_s);
BENCHMARK_CAPTURE(Read, Name, u"Nombre|Ana"_s);
BENCHMARK_CAPTURE(Read, NameAndMove, u"Nombre|AnaJug|-1|4"_s);
BENCHMARK_CAPTURE(Read, TextThatNobodyKnows, u"Hola, ¿qué tal?"_s);
BENCHMARK_CAPTURE(Read, MebibyteThatNobodyKnows, QString(1 << 20, u'x'));

}  // namespace
}  // namespace brontavia

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);  // boxes wait in its event loop
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
