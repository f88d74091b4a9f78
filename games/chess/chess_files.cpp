// ChessFlow: position files, and going on with one together.
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "games/chess/chess_flow.h"
#include "games/chess/chess_messages.h"
#include "games/chess/move_record.h"
#include "games/chess/position_line.h"
#include "text/qt_text.h"
#include "text/rounding.h"
#include "text/wire_encoding.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

const QString kFilter = u"Notación FEN (*.fen)|*.fen|Todos los archivos (*.*)|*.*"_s;
constexpr qint64 kLongestLine = 1024;  // bytes that are read of a file

// The paths that the program builds have "\" between their parts.
QString SystemPath(QString path) { return path.replace(u'\\', u'/'); }

// `name` without what no file name can hold.
QString AsFileName(QString name) {
  for (QChar& character : name) {
    if (u"\\/:*?\"<>|"_s.contains(character) || character < u' ') character = u'_';
  }
  return name;
}

QString ProposedFolder() {
  const QString profile = qEnvironmentVariable("userProfile");
  QString folder = SystemPath(profile + u"\\Mis documentos");
  if (!profile.isEmpty() && QFileInfo(folder).isDir()) return folder;
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

// The first line of a position file; nothing when it cannot be read.
std::optional<QString> FirstLineOf(const QString& path) {
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray text = file.read(kLongestLine);
  const std::string_view characters(text);
  const std::string_view line = characters.substr(0, characters.find_first_of("\r\n"));
  return FromWire(text.first(static_cast<qsizetype>(line.size())));
}

}  // namespace

// ---- Saving ----

QString ChessFlow::ProposedFile() const {
  const QDate today = QDate::currentDate();
  const QString white = AsFileName(session_.PlayerNames.Trimmed(WhitePlayer()));
  const QString black = AsFileName(session_.PlayerNames.Trimmed(OpponentOf(WhitePlayer())));
  return SystemPath(ProposedFolder() + u'\\' + white + u'-' + black + u" _ " + QString::number(today.day()) + u'-' +
                    QString::number(today.month()) + u'-' + QString::number(today.year()) + u".fen");
}

void ChessFlow::Save() {
  if (file_name_.isEmpty()) {
    SaveAs();
  } else {
    WritePosition(file_name_);
  }
}

void ChessFlow::SaveAs() {
  const QString path = AskFileToSave({.Title = u"Guardar partida como..."_s,
                                      .Filter = kFilter,
                                      .Path = file_name_.isEmpty() ? ProposedFile() : file_name_});
  if (path.isEmpty()) return;
  file_name_ = path;
  WritePosition(path);
}

void ChessFlow::WritePosition(const QString& path) {
  // Written beside its place and moved there, so that a failure leaves the old file.
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(ToWire(QString(ToQString(PositionLine(game_.Position())) + kCrLf)));
  file.commit();
}

// ---- Going on with a saved position ----

void ChessFlow::OpenGame() {
  const QString path = AskFileToOpen(
      {.Title = u"Abrir partida "_s, .Filter = kFilter, .Path = file_name_.isEmpty() ? ProposedFolder() : file_name_});
  if (path.isEmpty()) return;
  file_name_ = path;
  const auto line = FirstLineOf(path);
  if (!line) return;
  if (!ReadPosition(Characters(*line), game_.Position())) {
    RefusePosition();
    return;
  }
  const QString description = QFileInfo(path).fileName();
  saved_game_path_ = path;  // the answer may come before the box below is closed
  if (!SendAndWait(message::kResumeAsked.Token + description)) return;
  ShowBox(u"Se ha enviado a "_s + OtherName() +
              u" un mensaje preguntándole si desea continuar jugando contra usted la partida " + description +
              u". Si responde que sí, se cargará automáticamente la partida.",
          {});
}

void ChessFlow::ResumeAsked(const QString& description) {
  const Button answer = ShowBox(OtherName() + u" desea reanudar la partida " + description +
                                    u" . ¿Quiere usted también continuar jugando esa partida?",
                                u"Reanudar partida"_s, Buttons::YesNo);
  SendAndWait((answer == Button::Yes ? message::kResumeAccepted : message::kResumeRefused).Token.toString());
}

void ChessFlow::ResumeRefused() {
  saved_game_path_.clear();
  ShowBox(OtherName() + u" rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual.",
          {});
}

void ChessFlow::ResumeAccepted() {
  AddMessage(u"Se aceptó la solicitud, cargando la partida."_s);
  const auto line = FirstLineOf(saved_game_path_);
  if (!line) return;
  if (!ReadPosition(Characters(*line), game_.Position())) {
    RefusePosition();  // the file has changed since it was chosen
    return;
  }
  if (!SendAndWait(message::kPosition.Token + *line)) return;
  if (LoadPosition(*line)) ChooseColours();
}

void ChessFlow::ChooseColours() {
  double choice = 0;
  while (choice < 1 || choice > 2) {
    choice = Val(Ask(u"¿Quién juega con blancas?: 1=Yo, 2=El otro jugador"_s, u"Asignación de bandos"_s));
  }
  session_.StartingPlayer = choice == 1 ? OwnPlayer() : OtherPlayer();
  const Colour side = game_.Position().SideToMove;
  session_.CurrentTurn = side == Colour::White && WhitePlayer() == OwnPlayer() ? OwnPlayer() : OtherPlayer();
  SendAndWait(message::kResumedTurns.Token +
              ToQString(TurnsText({.White = WhitePlayer(), .SideToMove = side, .ToMove = session_.CurrentTurn})));
}

void ChessFlow::TurnsReceived(const QString& payload) {
  const auto turns = ReadTurns(Characters(payload));
  if (!turns) throw MalformedMessage("no turns of two players");
  session_.StartingPlayer = turns->White;
  timer1_.CatchUp();
  game_.SetSideToMove(turns->SideToMove);
  session_.CurrentTurn = turns->ToMove;
  ShowPositionBox();
  AddMessage(u"Posición cargada. Usted juega con "_s + (turns->White == OwnPlayer() ? u" blancas"_s : u" negras"_s) +
             u". Mueven " + (turns->SideToMove == Colour::White ? u" blancas"_s : u" negras"_s) + u'.');
}

bool ChessFlow::LoadPosition(const QString& line) {
  timer1_.CatchUp();
  if (!game_.Load(Characters(line))) return false;
  ++positions_replaced_;
  last_move_.reset();
  DrawBoard();
  Screen().SetText(Box::TBJugadas, ToQString(MoveListStart(game_.Position())));
  ShowPositionBox();
  return true;
}

void ChessFlow::RefusePosition() { ShowBox(u"El texto no contiene una posición de ajedrez."_s, u"Abrir partida "_s); }

}  // namespace brontavia
