// Rendering the result of a command in each of the four formats.
#include <benchmark/benchmark.h>

#include <string>

#include "plugins/plugin.cliframework/StatusResult.h"

namespace {

using plugin::cli::StatusResult;

const StatusResult& commandResult() {
  static const StatusResult result(
      "The file /var/log/orlo/report.txt was added to the incident report.",
      StatusResult::successType);
  return result;
}

void BM_RenderText(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(commandResult().toText(0));
}
void BM_RenderCsv(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(commandResult().toCsv());
}
void BM_RenderJson(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(commandResult().toJson(0));
}
void BM_RenderXml(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(commandResult().toXml(0));
}

}  // namespace

BENCHMARK(BM_RenderText);
BENCHMARK(BM_RenderCsv);
BENCHMARK(BM_RenderJson);
BENCHMARK(BM_RenderXml);
