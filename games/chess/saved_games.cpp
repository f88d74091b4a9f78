#include "games/chess/saved_games.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "games/chess/chess_messages.h"
#include "games/chess/position_file.h"
#include "games/chess/position_line.h"
#include "net/message_tokens.h"
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

// What Windows has left there for old programs leads to the documents, but may not be looked into.
bool LeadsElsewhere(const QString& path) { return QFileInfo(path).isJunction(); }

// The first of the profile's documents, the system's and the home folder that is there.
QString ProposedFolder() {
  const QString profile = qEnvironmentVariable("userProfile").replace(u'\\', u'/');
  QString folder = profile + u"/Mis documentos";
  if (!profile.isEmpty() && IsFolder(folder) && !LeadsElsewhere(folder)) return folder;
  folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return IsFolder(folder) ? folder : QDir::homePath();
}

}  // namespace

// ---- Saving ----

QString SavedGames::FileToPropose() const {
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

void SavedGames::Save() {
  if (file_name_.isEmpty()) {
    SaveAs();
  } else {
    Write(file_name_);
  }
}

void SavedGames::SaveAs() {
  const QString path =
      host_.AskFileToSave({.Title = u"Guardar partida como..."_s, .Filter = kFilter, .Path = FileToPropose()});
  if (path.isEmpty()) return;
  file_name_ = path;
  Write(path);
}

void SavedGames::Write(const QString& path) {
  const auto failure = WritePositionFile(path, ToQString(PositionLine(table_.Game.Position())));
  if (!failure) return;
  host_.Tell(u"No se ha podido guardar la partida en el archivo "_s + path + u": " + *failure, u"Error"_s);
}

// ---- Offering a saved position ----

void SavedGames::Open() {
  const bool folder_is_there = !file_name_.isEmpty() && IsFolder(QFileInfo(file_name_).path());
  const QString path = host_.AskFileToOpen(
      {.Title = kOpenTitle, .Filter = kFilter, .Path = folder_is_there ? file_name_ : ProposedFolder()});
  if (path.isEmpty()) return;
  file_name_ = path;
  if (!Read(path)) return;
  const QString description = QFileInfo(path).fileName();
  offered_path_ = path;  // the answer may come before the box below is closed
  if (!host_.SendAndWait(message::kResumeAsked.Token + description)) {
    offered_path_.clear();
    return;
  }
  waiting_box_ = u"Se ha enviado a "_s + OtherName() +
                 u" un mensaje preguntándole si desea continuar jugando contra usted la partida " + description +
                 u". Si responde que sí, se cargará automáticamente la partida.";
  host_.Tell(waiting_box_);
}

void SavedGames::CloseWaitingBox() {
  if (!waiting_box_.isEmpty()) host_.Dismiss(std::exchange(waiting_box_, {}));
}

void SavedGames::Refused() {
  CloseWaitingBox();
  offered_path_.clear();
  host_.Tell(OtherName() +
             u" rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual.");
}

void SavedGames::Accepted() {
  CloseWaitingBox();
  screen_.AddMessage(u"Se aceptó la solicitud, cargando la partida."_s);
  const auto saved = Read(offered_path_);  // it may have changed since it was chosen
  if (!saved || !host_.SendAndWait(message::kPosition.Token + saved->Line)) return;
  Load(saved->Position);
  ChooseColours();
}

void SavedGames::ChooseColours() {
  double choice = 0;
  while (choice < 1 || choice > 2) {
    choice = Val(host_.Ask(u"¿Quién juega con blancas?: 1=Yo, 2=El otro jugador"_s, u"Asignación de bandos"_s));
  }
  const Player own = host_.OwnPlayer();
  const Colour side = table_.Game.Position().SideToMove;
  session_.StartingPlayer = choice == 1 ? own : OpponentOf(own);
  session_.CurrentTurn = side == Colour::White && session_.StartingPlayer == own ? own : OpponentOf(own);
  host_.SendAndWait(
      message::kResumedTurns.Token +
      ToQString(TurnsText({.White = session_.StartingPlayer, .SideToMove = side, .ToMove = session_.CurrentTurn})));
}

// ---- Being offered one ----

void SavedGames::Asked(const QString& description) {
  const bool agreed = host_.Confirm(OtherName() + u" desea reanudar la partida " + description +
                                        u" . ¿Quiere usted también continuar jugando esa partida?",
                                    u"Reanudar partida"_s);
  host_.SendAndWait((agreed ? message::kResumeAccepted : message::kResumeRefused).Token.toString());
}

void SavedGames::PositionReceived(const QString& line) {
  if (const auto position = ReadLine(line)) Load(*position);
}

bool SavedGames::TurnsReceived(const QString& payload) {
  const auto turns = ReadTurns(Characters(payload));
  if (!turns) return false;
  session_.StartingPlayer = turns->White;
  table_.Clocks.CatchUp();
  table_.Game.SetSideToMove(turns->SideToMove);
  session_.CurrentTurn = turns->ToMove;
  table_.Display.ShowPositionBox();
  screen_.AddMessage(u"Posición cargada. Usted juega con "_s +
                     (turns->White == host_.OwnPlayer() ? u" blancas"_s : u" negras"_s) + u". Mueven " +
                     (turns->SideToMove == Colour::White ? u" blancas"_s : u" negras"_s) + u'.');
  return true;
}

// ---- Reading and loading ----

std::optional<SavedGames::SavedPosition> SavedGames::Read(const QString& path) {
  const auto line = ReadFirstLine(path);
  if (!line) return std::nullopt;
  const auto position = ReadLine(*line);
  if (!position) return std::nullopt;
  return SavedPosition{.Line = *line, .Position = *position};
}

std::optional<ChessPosition> SavedGames::ReadLine(const QString& line) {
  const auto position = ReadPosition(Characters(line), table_.Game.Position());
  if (!position) host_.Tell(u"El texto no contiene una posición de ajedrez."_s, kOpenTitle);
  return position;
}

void SavedGames::Load(const ChessPosition& position) {
  table_.Clocks.CatchUp();
  table_.Game.Load(position);
  table_.Display.ShowNewGame();
}

}  // namespace brontavia
