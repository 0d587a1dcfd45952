// Measures what an operator feels of a console, as multiples of what the machine allows: every figure is taken from the
// floor and from every program in turn, round by round, on one processor.
//
//     console_bench [--cpu N] [--percent N] [--only FIGURE,FIGURE] [--json FILE] [-D NAME=VALUE] FLOOR PROGRAM...
//
// FLOOR and PROGRAM are session files; see session.h.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <sched.h>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "awake.h"
#include "call_count.h"
#include "pty_program.h"
#include "session.h"

namespace {
enum class Kind { operation, paste, start, memory };

// What the console is meant to reach; 0: nothing.
struct Target {
    double ratio = 0;   // at most so many times the floor
    double value = 0;   // at most (a rate: at least) so much in the figure's own unit
    double calls = 0;   // at most
    double writes = 0;  // at most
    double bytes = 0;   // at most
};
struct Figure {
    const char* name;
    const char* what;
    Kind kind;
    const char* unit;
    unsigned rounds;
    Target target;
};
// clang-format off
constexpr Figure kFigures[] = {
    {"key-echo",   "echo of a key",                                 Kind::operation, "us",      1000, {.ratio = 1.12, .calls = 3, .writes = 1}},
    {"completion", "completion by space or Tab",                    Kind::operation, "us",      1000, {.ratio = 1.4, .writes = 1, .bytes = 3}},
    {"help",       "\"?\" at an empty line",                        Kind::operation, "us",      1000, {.ratio = 2, .writes = 5}},
    {"local",      "a command that stays local",                    Kind::operation, "us",      1000, {.ratio = 3}},
    {"service",    "a command through the service",                 Kind::operation, "us",      1000, {.ratio = 2.5}},
    {"paste",      "lines pasted at once",                          Kind::paste,     "lines/s",   40, {.value = 30000}},
    {"start",      "from exec to the banner",                       Kind::start,     "us",        60, {.ratio = 2.5}},
    {"memory",     "private dirty memory, idle at the prompt",      Kind::memory,    "kB",         1, {.value = 200}},
};
// clang-format on
constexpr std::string_view kOurs = "console";  // the targets are this program's
constexpr unsigned kWarmUpShare = 10;          // one round in so many comes before the first that counts

struct Options {
    int cpu = 0;
    unsigned percent = 100;
    std::vector<std::string> only;  // the figures asked for; none: all
    std::string json;
    Definitions definitions;
    std::vector<std::string> sessions;
};

struct Summary {
    double median = 0, lower = 0, upper = 0;  // of all samples, and the quartiles
    double best = 0;  // a tenth of the samples is better: what a machine without other work gives
    std::size_t samples = 0;
};

struct Result {
    std::string program;
    Summary summary;
    std::string against;  // the program that the ratios are to: the floor
    double ratio = 1;
    double bestRatio = 1;  // of the best tenths
    std::optional<CallCount> counted{};
    unsigned lost = 0;  // lines without an answer
};

struct Subject {
    const std::string* name;
    const CommandSession* command;
    std::unique_ptr<PtyProgram> running{};
    std::vector<double> samples{};
    unsigned lost = 0;
};

double microseconds(Nanoseconds time) { return static_cast<double>(time.count()) / 1000; }

bool is_rate(const Figure& figure) { return figure.kind == Kind::paste; }

Summary summarize(std::vector<double> samples, bool moreIsBetter)
{
    if (samples.empty()) return {};
    std::sort(samples.begin(), samples.end());
    const auto at = [&](double share) {
        return samples[static_cast<std::size_t>(std::lround(share * static_cast<double>(samples.size() - 1)))];
    };
    return {at(0.5), at(0.25), at(0.75), at(moreIsBetter ? 0.9 : 0.1), samples.size()};
}

void play(PtyProgram& program, const std::vector<Exchange>& exchanges)
{
    for (const Exchange& exchange : exchanges)
        for (unsigned i = 0; i < exchange.times; ++i) {
            program.send(exchange.send);
            program.until(exchange.until);
        }
}

std::unique_ptr<PtyProgram> at_prompt(const CommandSession& command)
{
    auto program = std::make_unique<PtyProgram>(command.command);
    program->until(command.start);
    play(*program, command.logIn);
    return program;
}

double measure_operation(PtyProgram& program, const FigureSession& figure)
{
    unsigned operations = 0;
    for (const Exchange& step : figure.steps) operations += step.times;
    play(program, figure.before);
    const Nanoseconds begin = now();
    play(program, figure.steps);
    const Nanoseconds end = now();
    play(program, figure.after);
    return microseconds(end - begin) / operations;
}

double measure_paste(Subject& subject, const Exchange& paste)
{
    std::string lines;
    for (unsigned i = 0; i < paste.times; ++i) lines += paste.send;
    const Nanoseconds begin = now();
    const unsigned answered = subject.running->stream(lines, paste.until, paste.times);
    const Nanoseconds end = now();
    if (answered < paste.times) {
        subject.lost += paste.times - answered;
        subject.running = at_prompt(*subject.command);
    }
    return answered / (microseconds(end - begin) / 1e6);
}

double measure_start(const CommandSession& command)
{
    PtyProgram program(command.command);
    program.until(command.start);
    return microseconds(now() - program.exec_time());
}

double measure(const Figure& figure, Subject& subject)
{
    const auto session = subject.command->figures.find(figure.name);
    switch (figure.kind) {
    case Kind::operation: return measure_operation(*subject.running, session->second);
    case Kind::paste: return measure_paste(subject, session->second.paste);
    case Kind::start: return measure_start(*subject.command);
    case Kind::memory: return static_cast<double>(private_dirty_kilobytes(at_prompt(*subject.command)->id()));
    }
    return 0;
}

std::optional<CallCount> count(const Figure& figure, const CommandSession& command)
{
    const auto session = command.figures.find(figure.name);
    switch (figure.kind) {
    case Kind::operation: return count_steps(*at_prompt(command), session->second);
    case Kind::paste: return count_paste(*at_prompt(command), session->second.paste);
    case Kind::start: return count_start(command);
    case Kind::memory: return std::nullopt;
    }
    return std::nullopt;
}

bool asks_for(const Figure& figure, const CommandSession& command) { return command.figures.contains(figure.name); }

// The last one with the floor that it names, or with the first of all.
void compare(std::vector<Result>& results)
{
    Result& last = results.back();
    const auto named = [&](const Result& each) { return each.program == last.against; };
    const auto found = std::find_if(results.begin(), results.end(), named);
    const Result& floor = found == results.end() ? results.front() : *found;
    last.against = floor.program;
    last.ratio = last.summary.median / floor.summary.median;
    last.bestRatio = last.summary.best / floor.summary.best;
}

std::vector<Result> run(const Figure& figure, const std::vector<ProgramSession>& programs, unsigned percent)
{
    const bool lasting = figure.kind == Kind::operation || figure.kind == Kind::paste;
    std::vector<Subject> subjects;
    for (const ProgramSession& program : programs)
        for (const CommandSession& command : program.commands)
            if (asks_for(figure, command)) subjects.push_back({.name = &program.name, .command = &command});
    for (Subject& subject : subjects)
        if (lasting) subject.running = at_prompt(*subject.command);

    auto awake = std::make_unique<Awake>();
    const unsigned rounds = std::max(1u, figure.rounds * percent / 100), warmUp = rounds / kWarmUpShare;
    for (unsigned round = 0; round < rounds + warmUp; ++round)
        for (Subject& subject : subjects)
            if (const double sample = measure(figure, subject); round >= warmUp) subject.samples.push_back(sample);

    awake.reset();  // a traced program is not always woken in the middle of it

    std::vector<Result> results;
    for (Subject& subject : subjects) {
        subject.running.reset();
        results.push_back({.program = *subject.name,
                           .summary = summarize(subject.samples, is_rate(figure)),
                           .against = subject.command->figures.at(figure.name).against,
                           .counted = count(figure, *subject.command),
                           .lost = subject.lost});
        compare(results);
    }
    return results;
}

double per_operation(const Result& result, double count) { return count / result.counted->operations; }

bool meets(const Figure& figure, const Result& result)
{
    const Target& target = figure.target;
    const double value = result.summary.median;
    if (result.lost > 0) return false;
    if (target.ratio > 0 && result.ratio > target.ratio) return false;
    if (target.value > 0 && (is_rate(figure) ? value < target.value : value > target.value)) return false;
    if (!result.counted) return true;
    const auto within = [&](double most, unsigned long count) {
        return most <= 0 || per_operation(result, static_cast<double>(count)) <= most;
    };
    return within(target.calls, result.counted->calls) && within(target.writes, result.counted->writes) &&
           within(target.bytes, result.counted->bytes);
}

std::string target_text(const Figure& figure)
{
    char text[96];
    const Target& target = figure.target;
    if (target.ratio > 0)
        std::snprintf(text, sizeof text, "<= %.2fx", target.ratio);
    else
        std::snprintf(text, sizeof text, "%s %.0f %s", is_rate(figure) ? ">=" : "<=", target.value, figure.unit);
    std::string all = text;
    const auto add = [&all](double most, const char* what) {
        if (most > 0) all += ", " + std::to_string(std::lround(most)) + " " + what;
    };
    add(target.calls, "calls");
    add(target.writes, "writes");
    add(target.bytes, "bytes");
    return all;
}

void print_row(const Figure& figure, const Result& result, const Result& floor)
{
    const Summary& s = result.summary;
    std::printf("  %-16s %9.1f  %9.1f %9.1f  %6.2fx %6.2fx", result.program.c_str(), s.median, s.lower, s.upper,
                result.ratio, result.bestRatio);
    if (result.counted)
        std::printf("  %7.1f %7.1f %8.1f", per_operation(result, result.counted->calls),
                    per_operation(result, result.counted->writes),
                    per_operation(result, static_cast<double>(result.counted->bytes)));
    else
        std::printf("  %7s %7s %8s", "", "", "");
    if (result.lost > 0) std::printf("  %u lines lost", result.lost);
    if (result.program == kOurs)
        std::printf("  %s: %s", target_text(figure).c_str(), meets(figure, result) ? "met" : "NOT MET");
    if (result.against != floor.program) std::printf("  (x %s)", result.against.c_str());
    std::printf("\n");
}

void print_calls(const Result& result)
{
    std::printf("    %s asks for:", result.program.c_str());
    for (const auto& [name, count] : result.counted->byName)
        std::printf(" %s %.4g,", name.c_str(), per_operation(result, count));
    std::printf("\b \n");
}

void print(const Figure& figure, const std::vector<Result>& results)
{
    std::printf("\n%s: %s, %s\n", figure.name, figure.what, figure.unit);
    std::printf("  %-16s %9s  %9s %9s  %7s %7s  %7s %7s %8s\n", "", "median", "quartile", "quartile", "floor", "tenth",
                "calls", "writes", "bytes");
    for (const Result& result : results) print_row(figure, result, results.front());
    for (const Result& result : results)
        if (result.program == kOurs && result.counted) print_calls(result);
    std::fflush(stdout);
}

class Json {
public:
    Json(const std::string& path, const Options& options)
        : file_(path.empty() ? nullptr : std::fopen(path.c_str(), "w"))
    {
        if (!path.empty() && !file_) std::perror(path.c_str());
        if (!file_) return;
        char date[32];
        const std::time_t seconds = std::time(nullptr);
        std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&seconds));
        std::fprintf(file_, "{\"date\": \"%s\", \"percentOfRounds\": %u, \"figures\": [", date, options.percent);
    }
    ~Json()
    {
        if (!file_) return;
        std::fprintf(file_, "\n]}\n");
        std::fclose(file_);
    }
    Json(const Json&) = delete;
    Json& operator=(const Json&) = delete;

    void add(const Figure& figure, const Result& result)
    {
        if (!file_) return;
        const Summary& s = result.summary;
        std::fprintf(file_,
                     "%s\n  {\"figure\": \"%s\", \"program\": \"%s\", \"unit\": \"%s\", \"median\": %.3f, "
                     "\"lowerQuartile\": %.3f, \"upperQuartile\": %.3f, \"bestTenth\": %.3f, \"samples\": %zu, "
                     "\"against\": \"%s\", \"ofFloor\": %.4f, \"bestTenthOfFloor\": %.4f",
                     first_ ? "" : ",", figure.name, result.program.c_str(), figure.unit, s.median, s.lower, s.upper,
                     s.best, s.samples, result.against.c_str(), result.ratio, result.bestRatio);
        if (figure.kind == Kind::paste) std::fprintf(file_, ", \"lost\": %u", result.lost);
        if (result.counted) add_counts(result);
        if (result.program == kOurs)
            std::fprintf(file_, ", \"target\": \"%s\", \"met\": %s", target_text(figure).c_str(),
                         meets(figure, result) ? "true" : "false");
        std::fprintf(file_, "}");
        first_ = false;
    }

private:
    void add_counts(const Result& result)
    {
        std::fprintf(file_, ", \"calls\": %.3f, \"writes\": %.3f, \"bytes\": %.3f, \"callsByName\": {",
                     per_operation(result, result.counted->calls), per_operation(result, result.counted->writes),
                     per_operation(result, static_cast<double>(result.counted->bytes)));
        const char* separator = "";
        for (const auto& [name, count] : result.counted->byName) {
            std::fprintf(file_, "%s\"%s\": %.3f", separator, name.c_str(), per_operation(result, count));
            separator = ", ";
        }
        std::fprintf(file_, "}");
    }

    std::FILE* file_;
    bool first_ = true;
};

[[noreturn]] void usage()
{
    std::fprintf(stderr, "usage: console_bench [--cpu N] [--percent N] [--only FIGURE,FIGURE] [--json FILE] "
                         "[-D NAME=VALUE] FLOOR PROGRAM...\nfigures:");
    for (const Figure& figure : kFigures) std::fprintf(stderr, " %s", figure.name);
    std::fprintf(stderr, "\n");
    std::exit(EXIT_FAILURE);
}

void choose_figures(Options& options, std::string_view names)
{
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(','));
        const auto named = [name](const Figure& figure) { return figure.name == name; };
        if (std::none_of(std::begin(kFigures), std::end(kFigures), named)) usage();
        options.only.emplace_back(name);
        names.remove_prefix(std::min(names.size(), name.size() + 1));
    }
}

bool chosen(const Options& options, const Figure& figure)
{
    return options.only.empty() ||
           std::find(options.only.begin(), options.only.end(), figure.name) != options.only.end();
}

Options parse_options(std::span<char*> arguments)
{
    Options options;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view option = arguments[i];
        if (!option.starts_with('-')) {
            options.sessions.emplace_back(option);
            continue;
        }
        if (++i == arguments.size()) usage();
        const std::string value = arguments[i];
        if (option == "--cpu")
            options.cpu = static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
        else if (option == "--percent")
            options.percent = static_cast<unsigned>(std::strtoul(value.c_str(), nullptr, 10));
        else if (option == "--only")
            choose_figures(options, value);
        else if (option == "--json")
            options.json = value;
        else if (const std::size_t sign = value.find('='); option == "-D" && sign != std::string::npos)
            options.definitions[value.substr(0, sign)] = value.substr(sign + 1);
        else
            usage();
    }
    if (options.sessions.empty() || options.percent == 0) usage();
    return options;
}

// The programs inherit it: what is measured is work, not the way from one processor to the other.
void stay_on(int cpu)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(cpu, &set);
    if (sched_setaffinity(0, sizeof set, &set) == 0) return;
    std::perror("sched_setaffinity");
    std::exit(EXIT_FAILURE);
}
}  // namespace

int main(int argc, char** argv)
{
    const Options options = parse_options({argv, static_cast<std::size_t>(argc)});
    stay_on(options.cpu);
    std::vector<ProgramSession> programs;
    for (const std::string& path : options.sessions) programs.push_back(read_session(path, options.definitions));

    Json json(options.json, options);
    for (const Figure& figure : kFigures) {
        if (!chosen(options, figure)) continue;
        const std::vector<Result> results = run(figure, programs, options.percent);
        print(figure, results);
        for (const Result& result : results) json.add(figure, result);
    }
    return EXIT_SUCCESS;
}
