// How fast the host splits design lines and a console finds its keywords: a
// design of a hundred consoles is some 50,000 lines, each looked up linearly.
#include <benchmark/benchmark.h>

#include <stdio.h>
#include <string.h>

#include "../host/analyze/designtext.h"
#include "../plugin/device/keywordtable.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

KEYWORDTABLE ConsoleSizedTable()
{
    KEYWORDTABLE table;
    table.Add(" ", nullptr, 0, 0);
    char name[32];
    for (int n = 0; n < 128; n++) {
        snprintf(name, sizeof name, "key%03d", n);
        table.Add(name, nullptr, 0, KEYWORD_SAVED);
        snprintf(name, sizeof name, "keylabel%03d", n);
        table.Add(name, nullptr, 0, KEYWORD_SAVED);
    }
    for (int n = 0; n < 85; n++) {
        snprintf(name, sizeof name, "Setting%02d", n);
        table.Add(name, nullptr, 0, KEYWORD_SAVED | KEYWORD_LISTED);
    }
    table.Finish();
    return table;
}

void KeywordLookupLast(benchmark::State& state)
{
    const KEYWORDTABLE table = ConsoleSizedTable();
    for (auto _ : state)
        benchmark::DoNotOptimize(table.Lookup("keylabel127"));
}
BENCHMARK(KeywordLookupLast);

void SplitPropertyLine(benchmark::State& state)
{
    const char line[] = "Site*Floor1*ELKCST_3*keylabel042=Zone 42\r\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(SplitDesignLine(line, strlen(line)));
}
BENCHMARK(SplitPropertyLine);

void ParseControlLine(benchmark::State& state)
{
    const std::string value = "0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 40,40,48x56";
    CONTROLSPEC spec;
    std::string error;
    for (auto _ : state)
        benchmark::DoNotOptimize(ParseControlSpec(value, &spec, &error));
}
BENCHMARK(ParseControlLine);

}  // namespace
