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
  void SetStatus(const QString& text) override { Status = text; }
  void AddMessage(const QString& line) override {
    Messages += u"\r\n" + line;
    Lines << line;
  }
  void ClearMessages() override { Messages.clear(); }
  void Beep() override { ++Beeps; }

  QString Caption;
  QMap<Frame, bool> Visible;
  QString Status;     // TBEstado
  QString Messages;   // TBMensajes
  QStringList Lines;  // every line ever added
  int Beeps = 0;
};

}  // namespace brontavia::test
