// What reading a described layout costs: sentences of two lengths, then clauses against two numbers of
// applications, so that growth shows beside size.

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/PhraseParser.h"

namespace tilwin {
namespace {

/// Clauses as people write them, to about this many bytes. `name` is what the applications are called.
std::string sentence(std::size_t length, std::string_view name) {
  constexpr std::array<std::string_view, 4> places{" takes the left two thirds and ", " on the right; ",
                                                   " top left, ", " in the middle of the screen then "};
  std::string text;
  for (std::size_t clause = 0; text.size() < length; ++clause) {
    text.append("the ").append(name).append(1, ' ').append(std::to_string(clause));
    text.append(places[clause % places.size()]);
  }
  text.resize(length);
  return text;
}

std::vector<PhraseParser::AppCandidate> applications(std::int64_t count) {
  std::vector<PhraseParser::AppCandidate> apps;
  for (std::int64_t app = 0; app < count; ++app) {
    const std::string number = std::to_string(app);
    apps.push_back({"org.example.application" + number, "Example Editor " + number});
  }
  return apps;
}

void parsePhrases(benchmark::State& state, std::string_view name) {
  const std::string text = sentence(static_cast<std::size_t>(state.range(0)), name);
  for (auto _ : state) benchmark::DoNotOptimize(PhraseParser::parse(text));
}

/// One piece without an end: nothing but words to look through.
void parseOnePiece(benchmark::State& state) {
  std::string text;
  while (text.size() < static_cast<std::size_t>(state.range(0))) text += "three lefty thirds ";
  for (auto _ : state) benchmark::DoNotOptimize(PhraseParser::parse(text));
}

void resolvePhrases(benchmark::State& state) {
  const auto result = PhraseParser::parse(sentence(2000, "Editor"));
  const auto apps = applications(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(PhraseParser::slots(result, apps));
  state.counters["clauses"] = static_cast<double>(result.clauses.size());
}

BENCHMARK_CAPTURE(parsePhrases, ascii, "Editor")->Arg(2000)->Arg(4000);
BENCHMARK_CAPTURE(parsePhrases, accents, "Éditeur")->Arg(2000)->Arg(4000);
BENCHMARK(parseOnePiece)->Arg(2000)->Arg(4000);
BENCHMARK(resolvePhrases)->Arg(200)->Arg(400);

}  // namespace
}  // namespace tilwin
