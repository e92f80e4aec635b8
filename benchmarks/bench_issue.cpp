// Measures issuing a day for all plans of the database, and issuing it again.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "SampleSession.h"

namespace {

/// Returns the seconds for a day on which the given numbers of plans are issued and were issued before.
double secondsToIssue(benchmark::State& state, int issued, int issuedBefore)
{
    Result<IssueResult> result{ IssueResult() };
    const double seconds = secondsOf([&result] { result = InstructionIssuer::issueDay(SampleSession::today()); });
    if (!result)
        state.SkipWithError(qPrintable(errorText(result.status())));
    else if (result->issued.size() != issued || result->alreadyIssued.size() != issuedBefore)
        state.SkipWithError("other plans were issued");
    return seconds;
}

void issueDay(benchmark::State& state)
{
    const int plans = ClientSession::instance().plans().count().valueOr(0);
    for (auto _ : state) {
        state.counters["first_ms"] = secondsToIssue(state, plans, 0) * 1000;
        state.counters["again_ms"] = secondsToIssue(state, 0, plans) * 1000;
        state.SetIterationTime(state.counters["first_ms"] / 1000);
    }
}

BENCHMARK(issueDay)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
