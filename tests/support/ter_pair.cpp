#include "tests/support/ter_pair.h"

namespace brontavia::test {

TerCopy::TerCopy(Role role, const QString& owner, unsigned seed)
    : Dialogs(owner),
      Values{.PlayerRole = role},
      Flow({.Connection = Connection, .Dialogs = Dialogs, .Screen = Screen, .Values = Values}, seed) {
  QObject::connect(&Flow, &ConnectionFlow::Finished, &Flow, [this](AfterWindow after) { Finished = after; });
}

QString TerCopy::Shown() const {
  QString shown;
  for (int cell = 0; cell < kTerCells; ++cell) shown += Flow.FG1().Cell({cell / kTerSide, cell % kTerSide}).Text;
  return shown;
}

TerPair::TerPair(unsigned seed)
    : Server(Role::Server, QStringLiteral("server"), seed), Client(Role::Client, QStringLiteral("client"), seed + 1) {
  TestConnection::Join(Server.Connection, Client.Connection);
}

void TerPair::Settle() {
  do {
    QCoreApplication::processEvents();
  } while (!Server.Connection.Quiet() || !Client.Connection.Quiet());
  QCoreApplication::processEvents();
}

void TerPair::Ask() {
  Server.Flow.Load();
  Client.Flow.Load();
  Client.Flow.CBConLocalClicked();
}

void TerPair::Connect(const Handshake& answers) {
  Server.Dialogs.Expect(box::kRequestTitle, box::kRequest, Button::Ok);
  Server.Dialogs.ExpectInput(box::kNameTitle, box::kName, QStringLiteral("Servidor"), answers.ServerName);
  Server.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, QStringLiteral("3"), answers.ServerChoice);
  Client.Dialogs.ExpectInput(box::kNameTitle, box::kName, QStringLiteral("Cliente"), answers.ClientName);
  Client.Dialogs.ExpectInput(box::kTurnTitle, box::kTurn, QStringLiteral("3"), answers.ClientChoice);
  Ask();
  Settle();
}

void TerPair::Play(std::initializer_list<int> cells) {
  for (const int cell : cells) {
    Copy(Server.Flow.State().CurrentTurn).Click(cell);
    Settle();
  }
}

}  // namespace brontavia::test
