// Decoding an Identify structure or a log page into its tree, and writing the tree as XML,
// apart.
#include <benchmark/benchmark.h>

#include <string>

#include "BenchInput.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"
#include "orlo/features/identify/NVMe_ControllerData.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"
#include "orlo/features/nvme_get_log/CommandEffectsDecoder.h"

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
namespace identify = orlo::features::identify;
namespace commandEffects = orlo::features::nvme_get_log::commandEffects;

template <typename Decode>
void decodeBench(benchmark::State& state, Decode decode, uint32_t size) {
  const Payload payload = benchPayload(size);
  const AttributeCollection attributes = benchDeviceAttributes();
  for (auto _ : state) benchmark::DoNotOptimize(decode(payload, attributes));
}

template <typename Decode>
void writeXmlBench(benchmark::State& state, Decode decode, uint32_t size) {
  const auto tree = decode(benchPayload(size), benchDeviceAttributes());
  for (auto _ : state) {
    std::string xml;
    tree->write(xml);
    benchmark::DoNotOptimize(xml.data());
  }
}

void BM_IdentifyControllerDecode(benchmark::State& state) {
  decodeBench(state, identify::nvme::controllerData::toXmlObject, 4096);
}
void BM_IdentifyControllerWriteXml(benchmark::State& state) {
  writeXmlBench(state, identify::nvme::controllerData::toXmlObject, 4096);
}
void BM_IdentifyNamespaceDecode(benchmark::State& state) {
  decodeBench(state, identify::nvme::namespaceData::toXmlObject, 4096);
}
void BM_IdentifyNamespaceWriteXml(benchmark::State& state) {
  writeXmlBench(state, identify::nvme::namespaceData::toXmlObject, 4096);
}
void BM_AtaIdentifyDecode(benchmark::State& state) {
  decodeBench(state, identify::ata::decodeIdentifyDevice, 512);
}
void BM_AtaIdentifyWriteXml(benchmark::State& state) {
  writeXmlBench(state, identify::ata::decodeIdentifyDevice, 512);
}

void BM_CommandEffectsDecode(benchmark::State& state) {
  decodeBench(state, commandEffects::decode, 4096);
}
void BM_CommandEffectsWriteXml(benchmark::State& state) {
  writeXmlBench(state, commandEffects::decode, 4096);
}

}  // namespace

BENCHMARK(BM_IdentifyControllerDecode);
BENCHMARK(BM_IdentifyControllerWriteXml);
BENCHMARK(BM_IdentifyNamespaceDecode);
BENCHMARK(BM_IdentifyNamespaceWriteXml);
BENCHMARK(BM_AtaIdentifyDecode);
BENCHMARK(BM_AtaIdentifyWriteXml);
BENCHMARK(BM_CommandEffectsDecode);
BENCHMARK(BM_CommandEffectsWriteXml);
