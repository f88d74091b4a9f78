// A screen that remembers what it was told to show.
#pragma once

#include <QMap>
#include <QStringList>

#include "ui/screen.h"

namespace brontavia::test {

class RecordingScreen : public Screen {
 public:
  void SetCaption(const QString& caption) override { Caption = caption; }
  void ShowFrame(Frame frame, bool visible) override { Visible[frame] = visible; }
  void SetText(Box box, const QString& text) override {
    (box == Box::TBEstado ? Status : box == Box::TBMensajes ? Messages : Ships) = text;
  }
  void AddMessage(const QString& line) override {
    Messages += u"\r\n" + line;
    Lines << line;
  }
  void Beep() override { ++Beeps; }
  void PlaySound(Player player, const QString& file) override {
    Sounds << (player == Player::Mp1 ? u"Mp1 " : u"MP2 ") + file;
  }

  QString Caption;
  QMap<Frame, bool> Visible;
  QString Status;      // TBEstado
  QString Messages;    // TBMensajes
  QStringList Lines;   // every line ever added
  QString Ships;       // TBBarcos
  QStringList Sounds;  // player and file of every sound
  int Beeps = 0;
};

}  // namespace brontavia::test
