// What one pump of the event queue costs in a loop over a long melody.
#include <QCoreApplication>

#include "bench/side_by_side.h"
#include "platform/pump_qt.h"

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  constexpr size_t kPumps = 1000000;
  trillomat::QtPump pump;
  trillomat::EventPump& asSeenByLoops = pump;
  trillomat::PrintTime("pump", kPumps, [&asSeenByLoops] {
    for (size_t i = 0; i < kPumps; ++i) trillomat::measured = asSeenByLoops.PumpEvents() ? 1 : 0;
  });
}
