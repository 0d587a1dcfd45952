// What is below the terminal: matching over tables of several sizes, records, requests to the service of this build
// (which runs already), saving. The console's text goes nowhere, the report to the standard error output.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "cli/edit_context.h"
#include "cli/help.h"
#include "cli/parse.h"
#include "cli/smart_edit.h"
#include "cli/tables.h"
#include "cli/token.h"
#include "console/session.h"
#include "service/client.h"
#include "service/fields/system.h"

namespace {
// A sorted table of that many commands of two keywords and a text. "wireless show <text>" is always one of them.
class Table {
public:
    explicit Table(std::int64_t size)
    {
        constexpr std::uint32_t kKeywords = kKeywordEnd - 1, kShift = 58;
        for (std::uint32_t i = 0; i < size; ++i) {
            CliCmdRow row{};
            row.cmdId = 1 + i % (kEngineeringFirst - 1);
            row.tokens = {Token{static_cast<std::uint16_t>(1 + i % kKeywords)},
                          Token{static_cast<std::uint16_t>(1 + (i / kKeywords + kShift) % kKeywords)},
                          Token::pmString30};
            row.featureAny = row.interfaceAny = 1;
            rows_.push_back(row);
        }
        rows_.push_back({.cmdId = kCommandEnd,
                         .tokens = {},
                         .category = 0,
                         .featureAny = 0,
                         .featureAll = 0,
                         .interfaceAny = 0,
                         .interfaceAll = 0,
                         .modeWord = 0});
        std::uint32_t total, visible, hidden;
        CliInitCommand(rows_.data(), &total, &visible, &hidden);
        CliSetCmdcount(total, visible, hidden);
        matchedRows = rows_.data();
    }
    ~Table() { matchedRows = gCliCmdTable.data(); }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

private:
    std::vector<CliCmdRow> rows_;
};

struct Typing {
    EditContext edit{};
    Session slot{};

    Typing()
    {
        edit.editMode = kSmartEdit;
        slot.edit = &edit;
        reset_pb(edit);
    }
    void type_line(std::string_view text)
    {
        reset_pb(edit);
        std::memcpy(edit.line.text, text.data(), text.size());
        edit.line.length = edit.line.cursor = static_cast<int>(text.size());
    }
    void type_word(std::string_view text)
    {
        type_line(text);
        std::memcpy(edit.current->word, text.data(), text.size());
        edit.current->wordLength = static_cast<std::uint32_t>(text.size());
    }
};

void match_line(benchmark::State& state)
{
    const Table table(state.range(0));
    Typing typing;
    for (auto _ : state) {
        typing.type_line("wireless show lab");
        if (parse_cmdline(typing.slot) != 1) state.SkipWithError("the line was refused");
    }
    state.SetComplexityN(state.range(0));
}

void complete_word(benchmark::State& state)
{
    const Table table(state.range(0));
    Typing typing;
    for (auto _ : state) {
        typing.type_word("wirel");
        parse_tab(typing.edit, typing.slot.call.parms, 0);
        if (typing.edit.line.length != static_cast<int>(std::strlen("wireless "))) state.SkipWithError("not completed");
    }
    state.SetComplexityN(state.range(0));
}

void list_help(benchmark::State& state)
{
    const Table table(state.range(0));
    Typing typing;
    for (auto _ : state) {
        typing.type_line("");
        if (!help(typing.edit, 0)) state.SkipWithError("nothing listed");
    }
    state.SetComplexityN(state.range(0));
}

void tables(benchmark::internal::Benchmark* b)
{
    b->Arg(140)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN)->Unit(benchmark::kMicrosecond);
}
BENCHMARK(match_line)->Apply(tables);
BENCHMARK(complete_word)->Apply(tables);
BENCHMARK(list_help)->Apply(tables);

void encode_record(benchmark::State& state)
{
    static ComParam record;
    for (auto _ : state) {
        std::memset(&record, 0, sizeof record);
        system_record::prompt.set(record, "Command> ");
        system_record::description.set(record, "Wireless access point and router");
        system_record::location.set(record, "roof");
        system_record::contact.set(record, "nobody");
        system_record::name.set(record, "lab-ap");
        system_record::lanAddress.set(record, 0xc0a80101);
        system_record::lanNetmask.set(record, 0xffffff00);
        system_record::lanMac.set(record, "\x02\x00\x5e\x10\x00\x01");
        benchmark::DoNotOptimize(record);
    }
}
BENCHMARK(encode_record);

void decode_record(benchmark::State& state)
{
    static ComParam record;
    system_record::name.set(record, "lab-ap");
    system_record::lanAddress.set(record, 0xc0a80101);
    for (auto _ : state) {
        benchmark::DoNotOptimize(system_record::name.get(record));
        benchmark::DoNotOptimize(system_record::lanAddress.get(record));
        benchmark::DoNotOptimize(system_record::lanNetmask.get(record));
        benchmark::DoNotOptimize(system_record::lanMac.get(record));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(decode_record);

bool whole(ssize_t count) { return count == static_cast<ssize_t>(kRecordSize); }

// The other end sends every record back as it came: what a request costs when nobody looks at it.
class BareService {
public:
    BareService()
    {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
        if (fork() == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            close(ends[0]);
            static char record[kRecordSize];
            while (whole(recv(ends[1], record, sizeof record, MSG_WAITALL)) &&
                   whole(write(ends[1], record, sizeof record))) {
            }
            _exit(EXIT_SUCCESS);
        }
        close(ends[1]);
        line_ = ends[0];
    }
    ~BareService() { close(line_); }
    BareService(const BareService&) = delete;
    BareService& operator=(const BareService&) = delete;

    bool exchange(ComParam& record) const
    {
        return whole(write(line_, &record, sizeof record)) && whole(recv(line_, &record, sizeof record, MSG_WAITALL));
    }

private:
    int line_;
};

using Clock = std::chrono::steady_clock;

double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double microseconds(Clock::duration time) { return std::chrono::duration<double, std::micro>(time).count(); }

// A request and a bare exchange in turn, so that both have the same machine. Told are the medians.
void read_request(benchmark::State& state)
{
    const BareService bareService;
    static ComParam record;
    std::vector<double> bare, request;
    for (auto _ : state) {
        const Clock::time_point begin = Clock::now();
        const bool exchanged = bareService.exchange(record);
        const Clock::time_point between = Clock::now();
        const bool answered = read_record(static_cast<std::uint16_t>(state.range(0))).ok();
        const Clock::time_point end = Clock::now();
        if (!exchanged || !answered) {
            state.SkipWithError("refused");
            break;
        }
        bare.push_back(microseconds(between - begin));
        request.push_back(microseconds(end - between));
        state.SetIterationTime(request.back() / 1e6);
    }
    if (request.empty()) return;
    state.counters["bare_us"] = median(bare);
    state.counters["request_us"] = median(request);
    state.counters["of_bare"] = median(request) / median(bare);
    state.counters["per_second"] = 1e6 / median(request);
}
BENCHMARK(read_request)
    ->ArgName("code")
    ->Arg(code::kReadManagement)
    ->Arg(code::kReadDhcpServer)
    ->Arg(code::kReadSystem)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// For what other work on the machine disturbs: the median beside the mean.
template <class Operation> void tell_median(benchmark::State& state, Operation operation)
{
    std::vector<double> times;
    for (auto _ : state) {
        const Clock::time_point begin = Clock::now();
        if (!operation().ok()) {
            state.SkipWithError("refused");
            return;
        }
        times.push_back(microseconds(Clock::now() - begin));
        state.SetIterationTime(times.back() / 1e6);
    }
    if (!times.empty()) state.counters["median_us"] = median(times);
}

void write_same_name(benchmark::State& state)
{
    if (!read_record(code::kReadSystem).ok()) state.SkipWithError("refused");
    tell_median(state, [] { return write_record(code::kWriteSystem); });
}
BENCHMARK(write_same_name)->UseManualTime()->Unit(benchmark::kMicrosecond);

void write_other_name(benchmark::State& state)
{
    bool other = false;
    if (!read_record(code::kReadSystem).ok()) state.SkipWithError("refused");
    tell_median(state, [&other] {
        other = !other;
        system_record::name.set(usrComParam, other ? "lab-ap" : "roof-ap");
        return write_record(code::kWriteSystem);
    });
}
BENCHMARK(write_other_name)->UseManualTime()->Unit(benchmark::kMicrosecond);

void save_configuration(benchmark::State& state)
{
    tell_median(state, [] { return read_record(code::kSaveConfiguration); });
}
BENCHMARK(save_configuration)->UseManualTime()->Unit(benchmark::kMicrosecond);

void send_text_nowhere()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0) std::abort();
}
}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
    send_text_nowhere();
    std::uint32_t keywords;
    CliInitKeyword(gCliKeywordTable.data(), &keywords);
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    reporter.SetOutputStream(&std::cerr);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return EXIT_SUCCESS;
}
