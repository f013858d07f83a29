// The interpreter on its own: reading a statement into tokens, and eval of expressions that
// touch no table or window, so changes to the lexer and evaluator show apart from the rest.

#include "engine/engine.h"
#include "engine/lang/lexer.h"

#include <benchmark/benchmark.h>

namespace {

void TokenizeCreateRegion(benchmark::State& state) {
    const std::string statement =
        "Create Region into variable tobj 1 4 (0,0) (10,0) (10,5) (0,5)  pen (1, 2, 255 )   "
        "brush (01, 0, 0) ";
    for (auto _ : state)
        benchmark::DoNotOptimize(vellant::engine::tokenize(statement));
}
BENCHMARK(TokenizeCreateRegion);

void EvalArithmetic(benchmark::State& state) {
    vellant::engine::Engine engine;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine.evaluate("Maximum(3, 2) + Abs(-9) * 2").toEvalText());
    }
}
BENCHMARK(EvalArithmetic);

void EvalStringFunctions(benchmark::State& state) {
    vellant::engine::Engine engine;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            engine.evaluate("Format$(1234.5, \"#,###.00\") + UCase$(Left$(\"layer\", 3))")
                .toEvalText());
    }
}
BENCHMARK(EvalStringFunctions);

void RunAssignment(benchmark::State& state) {
    vellant::engine::Engine engine;
    engine.run("Dim f as Float");
    for (auto _ : state)
        engine.run("f = f + 1.5");
}
BENCHMARK(RunAssignment);

} // namespace
