// ChessFlow: position files, and going on with one together.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "tests/games/chess/profile.h"
#include "tests/support/aje_pair.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kFilter = u"Notación FEN (*.fen)|*.fen|Todos los archivos (*.*)|*.*"_s;
const QString kStartLine = u"tcadract/pppppppp/8/8/8/8/PPPPPPPP/TCADRACT/B RDrd - 0 1"_s;

FileQuestion ToOpen(const QString& path) { return {.Title = u"Abrir partida "_s, .Filter = kFilter, .Path = path}; }

FileQuestion ToSave(const QString& path) {
  return {.Title = u"Guardar partida como..."_s, .Filter = kFilter, .Path = path};
}

// The name that is proposed for a game of these players today.
QString Proposal(const QString& names) {
  const QDate today = QDate::currentDate();
  return names + u" _ %1-%2-%3.fen"_s.arg(today.day()).arg(today.month()).arg(today.year());
}

// Longer than any position, so that what is left of it shows.
const QByteArray kOldContent = QByteArray("8/8/8/8/8/8/8/R6r/B - - 0 1\r\n") + QByteArray(200, 'x');

// While it lives no file can grow past `bytes`, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limited{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
  }
  Q_DISABLE_COPY_MOVE(FullDisk)
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

// While it lives `folder` takes no new file. The superuser becomes somebody else, whom permissions bind.
class NoNewFiles {
 public:
  explicit NoNewFiles(const QString& folder) : folder_(QFile::encodeName(folder)), user_(geteuid()) {
    constexpr uid_t kNobody = 65534;
    chmod(QFile::encodeName(QFileInfo(folder).path()).constData(), 0755);
    chmod(folder_.constData(), 0555);
    EXPECT_EQ(seteuid(user_ == 0 ? kNobody : user_), 0);
  }
  Q_DISABLE_COPY_MOVE(NoNewFiles)
  ~NoNewFiles() {
    EXPECT_EQ(seteuid(user_), 0);
    chmod(folder_.constData(), 0755);
  }

 private:
  QByteArray folder_;
  uid_t user_;
};

class ChessFiles : public testing::Test {
 protected:
  ChessFiles() { Pair.Connect(); }

  [[nodiscard]] QString Folder() const { return Files.Folder(); }
  [[nodiscard]] QString InFolder(const QString& name) const { return Files.InFolder(name); }
  // Saves into a.fen, the file last chosen, as it runs out of room.
  void ExpectFullDiskKeepsTheOldFile() {
    const QString path = InFolder(u"a.fen"_s);
    for (const int room : {0, 20}) {
      Write(path, kOldContent);
      White.Dialogs.Expect(u"Error"_s, u"No se ha podido guardar la partida en el archivo "_s + path + u": " +
                                           QString::fromLocal8Bit(std::strerror(EFBIG)));
      {
        const FullDisk full(static_cast<rlim_t>(room));
        White.Flow.Run(ChessCommand::Save);
      }
      EXPECT_EQ(Written(path), kOldContent) << room;
    }
  }
  static QByteArray Written(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
  }
  static void Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }
  // White saves into `name` in the folder, having been proposed `proposed`.
  void SaveAs(const QString& name, const QString& proposed) {
    White.Dialogs.ExpectFile(ToSave(proposed), InFolder(name));
    White.Flow.Run(ChessCommand::SaveAs);
  }
  // White opens `name` with this content.
  void Open(const QString& name, const QByteArray& content) {
    Write(InFolder(name), content);
    White.Dialogs.ExpectFile(ToOpen(Folder()), InFolder(name));
  }
  void ExpectOffer(const QString& name) {
    White.Dialogs.Expect({},
                         u"Se ha enviado a Luis un mensaje preguntándole si desea continuar jugando contra usted "
                         u"la partida "_s +
                             name + u". Si responde que sí, se cargará automáticamente la partida.");
  }
  void ExpectQuestion(const QString& name, Button answer) {
    Black.Dialogs.Expect(
        u"Reanudar partida"_s,
        QString(u"Ana desea reanudar la partida " + name + u" . ¿Quiere usted también continuar jugando esa partida?"),
        answer);
  }
  void ExpectColours(const QString& answer) {
    White.Dialogs.ExpectInput(u"Asignación de bandos"_s, u"¿Quién juega con blancas?: 1=Yo, 2=El otro jugador"_s,
                              QString(), answer);
  }

  Profile Files;
  AjePair Pair;
  AjeCopy& White = Pair.Server;
  AjeCopy& Black = Pair.Client;
};

// ---- Saving ----

TEST_F(ChessFiles, TheFirstSaveAsksForAFileLaterOnesDoNot) {
  const QString proposed = InFolder(Proposal(u"Ana-Luis"_s));
  const QString chosen = InFolder(u"mía.fen"_s);
  White.Dialogs.ExpectFile(ToSave(proposed), chosen);
  White.Flow.Run(ChessCommand::Save);
  EXPECT_EQ(Written(chosen), kStartLine.toLatin1() + "\r\n");
  Pair.Play(u"e2e4"_s);
  White.Flow.Run(ChessCommand::Save);
  EXPECT_EQ(Written(chosen), "tcadract/pppppppp/8/8/4P3/8/PPPP1PPP/TCADRACT/N RDrd e6 0 1\r\n");
  White.Dialogs.ExpectFile(ToSave(chosen), QString());
  White.Flow.Run(ChessCommand::SaveAs);
  Black.Dialogs.ExpectFile(ToSave(proposed), QString());
  Black.Flow.Run(ChessCommand::Save);
  EXPECT_FALSE(QFile::exists(proposed)) << "cancelled";
}

TEST_F(ChessFiles, AFileThatCannotBeOpenedIsNotWrittenAndNothingIsSaid) {
  White.Dialogs.ExpectFile(ToSave(InFolder(Proposal(u"Ana-Luis"_s))), u"/nowhere/at all.fen"_s);
  White.Flow.Run(ChessCommand::SaveAs);
  EXPECT_FALSE(QFile::exists(u"/nowhere/at all.fen"_s));
}

TEST_F(ChessFiles, APipeIsNeitherReadNorReplaced) {
  const QString pipe = InFolder(u"pipe.fen"_s);
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
  SaveAs(u"pipe.fen"_s, InFolder(Proposal(u"Ana-Luis"_s)));
  struct stat status {};
  ASSERT_EQ(stat(QFile::encodeName(pipe).constData(), &status), 0);
  EXPECT_TRUE(S_ISFIFO(status.st_mode));
  White.Dialogs.ExpectFile(ToOpen(pipe), pipe);
  White.Flow.Run(ChessCommand::OpenGame);
  EXPECT_TRUE(White.Connection.Sent.filter(u"cargpartida|"_s).isEmpty());
}

TEST_F(ChessFiles, AFullDiskKeepsTheOldFileAndIsTold) {
  SaveAs(u"a.fen"_s, InFolder(Proposal(u"Ana-Luis"_s)));
  ExpectFullDiskKeepsTheOldFile();
}

TEST_F(ChessFiles, AFileIsWrittenInAFolderThatTakesNoNewOne) {
  SaveAs(u"a.fen"_s, InFolder(Proposal(u"Ana-Luis"_s)));
  Write(InFolder(u"a.fen"_s), kOldContent);
  chmod(QFile::encodeName(InFolder(u"a.fen"_s)).constData(), 0666);
  const NoNewFiles closed(Folder());
  White.Flow.Run(ChessCommand::Save);
  EXPECT_EQ(Written(InFolder(u"a.fen"_s)), kStartLine.toLatin1() + "\r\n");
  ExpectFullDiskKeepsTheOldFile();
  SaveAs(u"new.fen"_s, InFolder(u"a.fen"_s));
  EXPECT_FALSE(QFile::exists(InFolder(u"new.fen"_s))) << "it cannot be opened, which is not told";
}

TEST_F(ChessFiles, AFileIsWrittenWhoseNameLeavesNoRoomForAnotherBesideIt) {
  const QString name = QString(250, u'b') + u".fen";
  SaveAs(name, InFolder(Proposal(u"Ana-Luis"_s)));
  EXPECT_EQ(Written(InFolder(name)), kStartLine.toLatin1() + "\r\n");
}

// ---- What is proposed ----

TEST_F(ChessFiles, AFolderThatIsMissingGivesWayToTheDocumentsOrTheHome) {
  const QTemporaryDir home;
  const QByteArray before = qgetenv("HOME");
  qputenv("HOME", QFile::encodeName(home.path()));
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
  qputenv("userProfile", "/nowhere");
  for (const QString& folder : {home.path(), home.filePath(u"Documents"_s)}) {
    QDir().mkpath(folder);
    White.Dialogs.ExpectFile(ToOpen(folder), QString());
    White.Flow.Run(ChessCommand::OpenGame);
    White.Dialogs.ExpectFile(ToSave(folder + u'/' + Proposal(u"Ana-Luis"_s)), QString());
    White.Flow.Run(ChessCommand::SaveAs);
  }
  qunsetenv("XDG_CONFIG_HOME");
  qputenv("HOME", before);
}

TEST_F(ChessFiles, AFileWhoseFolderHasGoneIsProposedAnew) {
  QDir(Folder()).mkdir(u"short-lived"_s);
  SaveAs(u"short-lived/mine.fen"_s, InFolder(Proposal(u"Ana-Luis"_s)));
  EXPECT_TRUE(QDir(InFolder(u"short-lived"_s)).removeRecursively());
  White.Dialogs.ExpectFile(ToOpen(Folder()), QString());
  White.Flow.Run(ChessCommand::OpenGame);
  White.Dialogs.ExpectFile(ToSave(InFolder(u"mine.fen"_s)), QString());
  White.Flow.Run(ChessCommand::SaveAs);
}

TEST(ChessFileNames, HoldNoCharacterThatAFileNameCannot) {
  const Profile files;
  AjePair pair;
  pair.ExpectHandshake({.ServerName = u"a/b:c?"_s, .ClientName = u"x\\y*z"_s}, box::kColourQuestion);
  pair.Ask();
  pair.Settle();
  pair.Server.Dialogs.ExpectFile(ToSave(files.InFolder(Proposal(u"a_b_c_-x_y_z"_s))), QString());
  pair.Server.Flow.Run(ChessCommand::SaveAs);
}

// ---- Going on together. Nobody thinks here, so the answer comes while the offer is still on its way. ----

TEST_F(ChessFiles, ASavedPositionIsResumedByBoth) {
  Pair.Play(u"e2e4"_s);
  Black.Click(u"d7"_s);
  Open(u"alt.fen"_s, "8/8/8/8/8/8/4P3/R6r/N - - 7 9\r\nmore lines\r\n");
  ExpectQuestion(u"alt.fen"_s, Button::Yes);
  for (const QString& nonsense : {QString(), u"0"_s, u"3"_s}) ExpectColours(nonsense);
  ExpectColours(u"2"_s);
  ExpectOffer(u"alt.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
  EXPECT_EQ(Black.Connection.Sent.last(), u"cargpsi|"_s);
  const QStringList& sent = White.Connection.Sent;
  EXPECT_EQ(
      sent.mid(sent.size() - 3),
      QStringList({u"cargpartida|alt.fen"_s, u"datospartida|8/8/8/8/8/8/4P3/R6r/N - - 7 9"_s, u"cargpturnos|1 1 1"_s}));
  EXPECT_TRUE(White.Screen.Lines.contains(u"Se aceptó la solicitud, cargando la partida."_s));
  EXPECT_EQ(Black.Screen.Lines.last(), u"Posición cargada. Usted juega con  blancas. Mueven  negras."_s);
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->Flow.WhitePlayer(), Player::Client);
    EXPECT_EQ(copy->Flow.State().CurrentTurn, Player::Client)
        << "with Black to move the turn is handed over all the same";
    EXPECT_EQ(copy->At(u"a1"_s), PieceOf(kKing, Colour::White));
    EXPECT_EQ(copy->Flow.Game().Position().KingSquares.Black, (Coordinate{8, 1}));
    EXPECT_EQ(copy->Flow.Game().Position().MoveNumber, 9);
    EXPECT_EQ(copy->Screen.Moves, u"9. (...)"_s);
    EXPECT_TRUE(copy->Screen.Position.startsWith(u"Jug. Nº 9. Mueven Negras. "_s));
    EXPECT_FALSE(copy->Flow.Game().HasSelection());
    EXPECT_EQ(copy->Shown(u"e4"_s).Marks, Marks()) << "no last move";
  }
}

TEST_F(ChessFiles, TheRequesterWhoTakesWhiteMovesFirst) {
  Open(u"w.fen"_s, "8/8/8/8/8/8/4P3/R6r/B - - 0 1\r\n");
  ExpectQuestion(u"w.fen"_s, Button::Yes);
  ExpectColours(u"1"_s);
  ExpectOffer(u"w.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
  EXPECT_EQ(White.Connection.Sent.last(), u"cargpturnos|0 0 0"_s);
  EXPECT_EQ(Black.Screen.Lines.last(), u"Posición cargada. Usted juega con  negras. Mueven  blancas."_s);
  Pair.Play(u"e2e4"_s);
  EXPECT_EQ(Black.At(u"e4"_s), PieceOf(kPawn, Colour::White));
}

TEST_F(ChessFiles, ARefusalKeepsTheGame) {
  Open(u"w.fen"_s, "8/8/8/8/8/8/4P3/R6r/B - - 0 1\r\n");
  ExpectQuestion(u"w.fen"_s, Button::No);
  White.Dialogs.Expect(
      {}, u"Luis rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s);
  ExpectOffer(u"w.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
  EXPECT_EQ(Black.Connection.Sent.last(), u"cargpno|"_s);
  EXPECT_EQ(White.Flow.Game().Position(), StartPosition());
  White.Connection.Receive(u"cargpsi|"_s);
  Pair.Settle();
  EXPECT_TRUE(White.Connection.Sent.filter(u"datospartida|"_s).isEmpty()) << "the offer is forgotten";
}

const QString kNoPosition = u"El texto no contiene una posición de ajedrez."_s;

TEST_F(ChessFiles, AFileWithoutAPositionIsRefusedBeforeAnythingIsSent) {
  QString proposed = Folder();
  for (const QByteArray& content : {QByteArray(), QByteArray("nonsense\r\n"), QByteArray("8/8/8/8/8/8/8/8"),
                                    QByteArray(100'000, 'x'), QByteArray("\xff\xfe\x00\x01", 4)}) {
    Write(InFolder(u"bad.fen"_s), content);
    White.Dialogs.ExpectFile(ToOpen(proposed), InFolder(u"bad.fen"_s));
    proposed = InFolder(u"bad.fen"_s);
    White.Dialogs.Expect(u"Abrir partida "_s, kNoPosition);
    White.Flow.Run(ChessCommand::OpenGame);
  }
  EXPECT_EQ(White.Flow.Game().Position(), StartPosition());
  EXPECT_TRUE(White.Connection.Sent.filter(u"cargpartida|"_s).isEmpty());
}

TEST_F(ChessFiles, AFileNeedsNoLineBreakAtItsEnd) {
  Open(u"open.fen"_s, "8/8/8/8/8/8/4P3/R6r/B - - 0 1");
  ExpectQuestion(u"open.fen"_s, Button::No);
  White.Dialogs.Expect(
      {}, u"Luis rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s);
  ExpectOffer(u"open.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
}

TEST_F(ChessFiles, AFirstLineIsReadWhole) {
  QByteArray line(60'000, 'x');
  line.append("8/8/8/8/8/8/").append('\0').append("4P3/R6r/B - - 0 7");
  Open(u"long.fen"_s, line + "\r\n");
  ExpectQuestion(u"long.fen"_s, Button::Yes);
  ExpectColours(u"1"_s);
  ExpectOffer(u"long.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
  EXPECT_TRUE(White.Connection.Sent.contains(u"datospartida|"_s + QString::fromLatin1(line)));
  for (const AjeCopy* copy : {&White, &Black}) EXPECT_EQ(copy->Flow.Game().Position().MoveNumber, 7);
}

TEST_F(ChessFiles, AFileThatCannotBeOpenedStopsTheCommand) {
  White.Dialogs.ExpectFile(ToOpen(Folder()), InFolder(u"missing.fen"_s));
  White.Flow.Run(ChessCommand::OpenGame);
  EXPECT_TRUE(White.Connection.Sent.filter(u"cargpartida|"_s).isEmpty());
}

TEST_F(ChessFiles, FilesOfOtherProgramsAreUnderstood) {
  Open(u"std.fen"_s, "r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 12 30\n");
  ExpectQuestion(u"std.fen"_s, Button::Yes);
  ExpectColours(u"1"_s);
  ExpectOffer(u"std.fen"_s);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
  for (const AjeCopy* copy : {&White, &Black}) {
    EXPECT_EQ(copy->Flow.Game().Position().SideToMove, Colour::Black);
    EXPECT_EQ(copy->Flow.Game().Position().HalfMoveClock, 12);
    EXPECT_EQ(copy->Flow.Game().Position().MoveNumber, 30);
  }
}

TEST_F(ChessFiles, AReceivedTextWithoutAPositionIsRefused) {
  Black.Dialogs.Expect(u"Abrir partida "_s, kNoPosition);
  Black.Connection.Receive(u"datospartida|<b>no</b>"_s);
  Pair.Settle();
  EXPECT_EQ(Black.Flow.Game().Position(), StartPosition());
}

TEST_F(ChessFiles, TurnsThatCannotBeAreLeftOut) {
  for (const QString& payload : {QString(), u"0 0"_s, u"2 0 0"_s, u"0 2 0"_s, u"0 0 -1"_s, u"0 0 9e9"_s}) {
    Black.Connection.Receive(u"cargpturnos|"_s + payload);
    Pair.Settle();
  }
  EXPECT_EQ(Black.Flow.WhitePlayer(), Player::Server);
  EXPECT_EQ(Black.Flow.State().CurrentTurn, Player::Server);
  EXPECT_TRUE(Black.Screen.Lines.filter(u"Posición cargada"_s).isEmpty());
}

TEST_F(ChessFiles, TheBoxThatTellsToWaitClosesWhenTheAnswerComes) {
  const QString refusal =
      u"Luis rechazó la solicitud de jugar la partida guardada en el disco. Continúa la partida actual."_s;
  const QString offer =
      u"Se ha enviado a Luis un mensaje preguntándole si desea continuar jugando contra usted la partida a.fen. Si "
      u"responde que sí, se cargará automáticamente la partida."_s;
  Open(u"a.fen"_s, "tcadract/pppppppp/8/8/8/8/PPPPPPPP/TCADRACT/B RDrd - 0 1\r\n");
  ExpectQuestion(u"a.fen"_s, Button::No);
  White.Dialogs.Expect({}, refusal);  // within the wait, before there is a box
  White.Dialogs.Expect({}, offer, [&] {
    EXPECT_TRUE(White.Dialogs.Dismissed.isEmpty());
    White.Connection.Receive(u"cargpno|"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(White.Dialogs.Dismissed, QStringList{offer});
  });
  White.Dialogs.Expect({}, refusal);
  White.Flow.Run(ChessCommand::OpenGame);
  Pair.Settle();
}

}  // namespace
}  // namespace brontavia::test
