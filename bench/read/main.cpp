// How long one whole read takes on each path, against its time on the wire, and on the Modbus path
// also against libmodbus alone with the same requests, silences and delays. The measurements
// alternate.

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

#include "../Median.h"
#include "BareRead.h"
#include "ControlRead.h"
#include "HartWireTime.h"
#include "Twn4WireTime.h"
#include "WireTime.h"

namespace {

using tessara::bench::median;
using tessara::bench::Seconds;

constexpr int runs = 21;

/// A HART read takes seconds.
constexpr int hartRuns = 9;

void measureModbus(const tessara::bench::ModuleOnLine& module, int rate) {
  tessara::bench::ControlRead control(module.file);
  const Seconds wire = wireTime(module, rate);
  std::vector<double> whole;
  std::vector<double> bare;
  std::vector<double> ratios;
  for (int run = 0; run < runs; ++run) {
    whole.push_back(control.read(rate).count());
    bare.push_back(bareRead(control.device(), rate, module).count());
    ratios.push_back(whole.back() / bare.back());
  }
  std::printf(
      "%-28s %6d bit/s  wire %7.2f ms  read %7.2f ms  read/wire %.3f  bare %7.2f ms  "
      "read/bare %.3f\n",
      module.file, rate, wire.count() * 1e3, median(whole) * 1e3, median(whole) / wire.count(),
      median(bare) * 1e3, median(ratios));
}

/// `rate` is that of the connection; the line may have its own.
void measure(const char* moduleFile, int rate, int lineRate, Seconds wire, int count) {
  tessara::bench::ControlRead control(moduleFile);
  std::vector<double> whole(static_cast<std::size_t>(count));
  std::generate(whole.begin(), whole.end(), [&] { return control.read(rate).count(); });
  std::printf("%-28s %6d bit/s  wire %7.2f ms  read %7.2f ms  read/wire %.3f\n", moduleFile,
              lineRate, wire.count() * 1e3, median(whole) * 1e3, median(whole) / wire.count());
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    for (const int rate : {19200, 115200}) {
      measureModbus(tessara::bench::healthyModule(), rate);
      measureModbus(tessara::bench::faultyModule(), rate);
      measure(tessara::bench::twn4ModuleFile, rate, rate, tessara::bench::twn4WireTime(rate), runs);
    }
    measure(tessara::bench::hartModuleFile, 19200, 1200, tessara::bench::hartWireTime(), hartRuns);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_read: %s\n", error.what());
    return 1;
  }
  return 0;
}
