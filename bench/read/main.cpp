// How long one whole read takes, against the time that it needs on the wire and against libmodbus
// alone with the same requests, silences and delays. The three are measured in turn.

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

#include "BareRead.h"
#include "ControlRead.h"
#include "WireTime.h"

namespace {

using tessara::bench::Seconds;

constexpr int runs = 21;

double median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + runs / 2, values.end());
  return values[runs / 2];
}

void measure(const tessara::bench::ModuleOnLine& module, int rate) {
  tessara::bench::ControlRead control(module);
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
      "%-28s %6d bit/s  wire %7.2f ms  read %7.2f ms  bare %7.2f ms  read/wire %.3f  "
      "read/bare %.3f\n",
      module.file, rate, wire.count() * 1e3, median(whole) * 1e3, median(bare) * 1e3,
      median(whole) / wire.count(), median(ratios));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    for (const int rate : {19200, 115200}) {
      measure(tessara::bench::healthyModule(), rate);
      measure(tessara::bench::faultyModule(), rate);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_read: %s\n", error.what());
    return 1;
  }
  return 0;
}
