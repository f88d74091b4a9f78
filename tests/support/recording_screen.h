// A screen that remembers what it was told to show.
#pragma once

#include <QMap>
#include <QStringList>
#include <optional>

#include "seams/screen.h"

namespace brontavia::test {

class RecordingScreen : public Screen {
 public:
  void SetCaption(const QString& caption) override {
    ++Writes;
    Caption = caption;
  }
  void ShowFrame(Frame frame, bool visible) override {
    ++Writes;
    Visible[frame] = visible;
  }
  void SetText(Box box, const QString& text) override {
    ++Writes;
    TextOf(box) = text;
  }
  void AppendText(Box box, const QString& text) override {
    ++Writes;
    TextOf(box) += text;
  }
  void AddMessage(const QString& line) override {
    ++Writes;
    Messages += u"\r\n" + line;
    Lines << line;
  }
  void Announce(const QString& sentence) override {
    ++Writes;
    Announced << sentence;
  }
  void ShowScoreboard(const brontavia::Scoreboard& scoreboard) override {
    ++Writes;
    Scoreboard = scoreboard;
  }
  void ShowKeys(const KeyHints& keys) override {
    ++Writes;
    Keys = keys;
  }
  void ShowBoardCaption(const QString& caption, PlayerSign owner) override {
    ++Writes;
    BoardCaption = caption;
    BoardOwner = owner;
  }
  void Beep() override { ++Beeps; }
  void PlaySound(MediaPlayer player, const QString& file) override {
    ++Writes;
    Sounds << (player == MediaPlayer::Mp1 ? u"Mp1 " : u"MP2 ") + file;
  }

  QString Caption;
  QMap<Frame, bool> Visible;
  QString Status;         // TBEstado
  QString Messages;       // TBMensajes
  QStringList Lines;      // every line ever added
  QStringList Announced;  // beside what the boxes tell
  QString Ships;          // TBBarcos
  QString Moves;          // TBJugadas
  QString Position;       // TBEntorno
  QString Clocks;         // TBReloj
  brontavia::Scoreboard Scoreboard;
  KeyHints Keys;
  QString BoardCaption;
  std::optional<PlayerSign> BoardOwner;
  QStringList Sounds;  // player and file of every sound
  int Beeps = 0;
  int Writes = 0;  // everything above but beeps

 private:
  QString& TextOf(Box box) {
    switch (box) {
      case Box::TBEstado:
        return Status;
      case Box::TBMensajes:
        return Messages;
      case Box::TBBarcos:
        return Ships;
      case Box::TBJugadas:
        return Moves;
      case Box::TBEntorno:
        return Position;
      case Box::TBReloj:
        break;
    }
    return Clocks;
  }
};

}  // namespace brontavia::test
