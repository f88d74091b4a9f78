// The work whose instructions benchmarks/counts.py counts: that of RuleWork(), the dispatch of a read, and the start up
// to the first painting. Under callgrind each leaves a dump that has its name.
#include <valgrind/callgrind.h>
#include <QApplication>
#include <QTemporaryDir>

#include "app/window_owner.h"
#include "benchmarks/recorded_session.h"
#include "benchmarks/rule_work.h"
#include "ui/accessibility.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kTimes = 20;  // so that what is kept from one time to the next counts little

void Count(const Work& work, int times) {
  CALLGRIND_TOGGLE_COLLECT;
  for (int time = 0; time < times; ++time) work.Run();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(work.Name.c_str());
}

void Count(const Work& work) {
  work.Run();  // what is made once is made
  Count(work, kTimes);
}

void CountDispatch() {
  Client client;
  Count({"read that nobody knows", [&] { client.Connection.Deliver(u"Hola|¿qué tal?"_s); }});
  Count({"read with a name", [&] { client.Connection.Deliver(u"Nombre|Ana"_s); }});
}

// Once: a second window would find everything made.
void CountStart() {
  InstallAccessibility();
  const QTemporaryDir directory;
  WindowOwner owner(directory.path());
  Count({"start window",
         [&] {
           owner.ShowStart();
           QCoreApplication::processEvents();
         }},
        1);
}

}  // namespace
}  // namespace brontavia

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  for (const brontavia::Work& work : brontavia::RuleWork()) brontavia::Count(work);
  brontavia::CountDispatch();
  brontavia::CountStart();
}
