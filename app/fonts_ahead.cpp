#include "app/fonts_ahead.h"

#include <fontconfig/fontconfig.h>

#include <clocale>
#include <system_error>
#include <thread>

namespace brontavia {
namespace {

// The numbers in fontconfig's files have a point. The toolkit sets the locale of the process meanwhile, and in between
// a number could be read with the comma of the user's language; this thread keeps the locale of the files.
void ReadFonts() {
  uselocale(newlocale(LC_ALL_MASK, "C", nullptr));
  FcInit();
}

// Nothing where the system has no thread to give: the toolkit reads the fonts then.
std::jthread StartReading() {
  try {
    return std::jthread(ReadFonts);
  } catch (const std::system_error&) {
    return {};
  }
}

}  // namespace

void WhileFontsAreRead(const std::function<void()>& work) {
  const std::jthread reading = StartReading();  // waits at its end
  work();
}

}  // namespace brontavia
