#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace brisklog::bench {

using PlainRow = std::vector<std::string>;

/// Times drawing a table of these cells with nothing but Cairo and Pango, as their manuals show it: what a
/// document of these texts costs a program that does no more.
void timePlainTable(benchmark::State& state, const std::vector<PlainRow>& rows);

} // namespace brisklog::bench
