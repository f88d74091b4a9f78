// ChessFlow: position files, and going on with one together.
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "games/chess/chess_flow.h"
#include "games/chess/chess_messages.h"
#include "games/chess/move_record.h"
#include "games/chess/position_file.h"
#include "games/chess/position_line.h"
#include "text/first_line.h"
#include "text/qt_text.h"

namespace brontavia {

using namespace Qt::StringLiterals;

namespace {

const QString kFilter = u"Notación FEN (*.fen)|*.fen|Todos los archivos (*.*)|*.*"_s;
const QString kOpenTitle = u"Abrir partida "_s;

// `name` without what no file name can hold.
QString AsFileName(QString name) {
  for (QChar& character : name) {
    if (u"\\/:*?\"<>|"_s.contains(character) || character < u' ') character = u'_';
  }
  return name;
}

bool IsFolder(const QString& path) { return !path.isEmpty() && QFileInfo(path).isDir(); }

// The first of the profile's documents, the system's and the home folder that is there.
QString ProposedFolder() {
  const QString profile = qEnvironmentVariable("userProfile").replace(u'\\', u'/');
  const QString of_profile = profile + u"/Mis documentos";
  if (!profile.isEmpty() && IsFolder(of_profile)) return of_profile;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return IsFolder(documents) ? documents : QDir::homePath();
}

}  // namespace

// ---- Saving ----

QString ChessFlow::FileToPropose() const {
  const QFileInfo chosen(file_name_);
  if (!file_name_.isEmpty() && IsFolder(chosen.path())) return file_name_;
  const QDir folder(ProposedFolder());
  if (!file_name_.isEmpty()) return folder.filePath(chosen.fileName());
  const Player white = session_.StartingPlayer;
  const QDate today = QDate::currentDate();
  return folder.filePath(AsFileName(session_.PlayerNames.Trimmed(white)) + u'-' +
                         AsFileName(session_.PlayerNames.Trimmed(OpponentOf(white))) + u" _ " +
                         QString::number(today.day()) + u'-' + QString::number(today.month()) + u'-' +
                         QString::number(today.year()) + u".fen");
}

void ChessFlow::Save() {
  if (file_name_.isEmpty()) {
    SaveAs();
  } else {
    WritePosition(file_name_);
  }
}

void ChessFlow::SaveAs() {
  const QString path =
      AskFileToSave({.Title = u"Guardar partida como..."_s, .Filter = kFilter, .Path = FileToPropose()});
  if (path.isEmpty()) return;
  file_name_ = path;
  WritePosition(path);
}

void ChessFlow::WritePosition(const QString& path) {
  const auto failure = WritePositionFile(path, ToQString(PositionLine(game_.Position())));
  if (!failure) return;
  ShowBox(u"No se ha podido guardar la partida en el archivo "_s + path + u": " + *failure, u"Error"_s);
}

// ---- Going on with a saved position ----

void ChessFlow::OpenGame() {
  const bool folder_is_there = !file_name_.isEmpty() && IsFolder(QFileInfo(file_name_).path());
  const QString path =
      AskFileToOpen({.Title = kOpenTitle, .Filter = kFilter, .Path = folder_is_there ? file_name_ : ProposedFolder()});
  if (path.isEmpty()) return;
  file_name_ = path;
  if (!ReadSaved(path)) return;
  const QString description = QFileInfo(path).fileName();
  saved_game_path_ = path;  // the answer may come before the box below is closed
  if (!SendAndWait(message::kResumeAsked.Token + description)) {
    saved_game_path_.clear();
    return;
  }
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
  const auto saved = ReadSaved(saved_game_path_);  // it may have changed since it was chosen
  if (!saved || !SendAndWait(message::kPosition.Token + saved->Line)) return;
  LoadPosition(saved->Position);
  ChooseColours();
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

std::optional<ChessFlow::SavedPosition> ChessFlow::ReadSaved(const QString& path) {
  const auto line = ReadFirstLine(path);
  if (!line) return std::nullopt;
  const auto position = ReadLine(*line);
  if (!position) return std::nullopt;
  return SavedPosition{.Line = *line, .Position = *position};
}

std::optional<ChessPosition> ChessFlow::ReadLine(const QString& line) {
  const auto position = ReadPosition(Characters(line), game_.Position());
  if (!position) ShowBox(u"El texto no contiene una posición de ajedrez."_s, kOpenTitle);
  return position;
}

void ChessFlow::LoadPosition(const ChessPosition& position) {
  timer1_.CatchUp();
  game_.Load(position);
  last_move_.reset();
  DrawBoard();
  Screen().SetText(Box::TBJugadas, ToQString(MoveListStart(game_.Position())));
  ShowPositionBox();
}

}  // namespace brontavia
