#include "bench/load/load.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <poll.h>
#include <random>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/load/ownership.h"
#include "configd/raw_client.h"
#include "configd/temporary_folder.h"
#include "service/codes.h"
#include "service/status.h"
#include "support/process.h"

namespace {
using Clock = std::chrono::steady_clock;
constexpr int kPause = 2;  // milliseconds

void pause_a_little() { poll(nullptr, 0, kPause); }

// What a client has written down, in memory that outlives it.
struct Journal {
    std::atomic<unsigned> begun, answered;           // the number of its last change: sent perhaps, and answered
    std::atomic<unsigned> requests, saves, slowest;  // microseconds
    char fault[512];
};
struct Shared {
    std::atomic<bool> stop;
    Journal journal[kMostOwners];
};

struct SharedMemory {
    Shared* at =
        static_cast<Shared*>(mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ~SharedMemory() { munmap(at, sizeof(Shared)); }
};

std::string content_of(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// One client, in a process of its own.
class Client {
public:
    Client(Shared& shared, const LoadPlan& plan, const std::string& folder, unsigned index, unsigned life)
        : shared_(shared), journal_(shared.journal[index]), plan_(plan), folder_(folder), index_(index),
          random_(plan.seed * 1000003 + index * 1009 + life)
    {
    }

    // Until it is time to stop, a promise is broken or it is killed.
    void work()
    {
        while (!shared_.stop && !journal_.fault[0]) {
            if (!socket_ && !come_back()) return;
            if (act())
                journal_.requests++;
            else
                socket_.reset();
        }
    }

private:
    std::optional<Answer> ask(const ComParam& request)
    {
        const auto begun = Clock::now();
        // Some requests come in two pieces, so that a kill finds the service with half of one.
        const std::size_t first = random_() % 4 == 0 ? random_() % kRecordSize : kRecordSize;
        if (!socket_->send(request.bytes, first)) return {};
        if (first < kRecordSize && !socket_->send(request.bytes + first, kRecordSize - first)) return {};
        std::optional<Answer> answer = socket_->receive();
        if (!answer) return {};
        const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun).count();
        journal_.slowest = std::max(journal_.slowest.load(), static_cast<unsigned>(took));
        return answer;
    }
    Ask asking()
    {
        return [this](const ComParam& request) { return ask(request); };
    }

    // Connects, and finds out what became of a change that was not answered. False: the service does not come back.
    bool come_back()
    {
        for (const Deadline deadline(kPatience); !deadline.passed() && !shared_.stop; pause_a_little()) {
            socket_ = std::make_unique<RawClient>(folder_ + "/run/configd.sock");
            Observed now;
            if (!now.read(asking())) continue;
            const unsigned answered = journal_.answered, begun = journal_.begun;
            const std::optional<unsigned> number = now.number_of(index_, answered, begun);
            if (!number) {
                fail("change " + std::to_string(answered) + " was answered, and its settings are" +
                     now.describe(index_));
                return false;
            }
            journal_.answered = journal_.begun = *number;
            return true;
        }
        if (!shared_.stop) fail("the service does not come back");
        return false;
    }

    bool act()
    {
        const auto choice = random_() % 100;
        if (choice < 50) return ask(plain_request(reading_code(random_()))).has_value();
        if (choice < 99) return change_own();
        return save();
    }

    bool change_own()
    {
        const unsigned number = journal_.answered + 1;
        journal_.begun = number;
        const std::optional<Answer> answer = change(asking(), index_, number);
        if (!answer) return false;
        const std::uint32_t status = record::status.get(answer->record);
        if (status != kStatusOk)
            fail("change " + std::to_string(number) + " was refused with status " + std::to_string(status));
        journal_.answered = number;
        return true;
    }

    // What every client was answered before the save was asked for is on disk when the save is answered.
    bool save()
    {
        unsigned least[kMostOwners];
        for (unsigned i = 0; i < plan_.clients; i++) least[i] = shared_.journal[i].answered;
        const std::optional<Answer> answer = ask(plain_request(code::kSaveConfiguration));
        if (!answer) return false;
        if (record::status.get(answer->record) != kStatusOk) fail("a save was refused");

        Observed stored;
        stored.read_stored(content_of(folder_ + "/state/config.json"));
        for (unsigned i = 0; i < plan_.clients; i++) {
            if (stored.number_of(i, least[i], shared_.journal[i].begun)) continue;
            fail("a save was answered without change " + std::to_string(least[i]) + " of client " + std::to_string(i) +
                 ":" + stored.describe(i));
        }
        journal_.saves++;
        return true;
    }

    void fail(const std::string& why)
    {
        if (journal_.fault[0]) return;
        std::snprintf(journal_.fault, sizeof journal_.fault, "client %u: %s", index_, why.c_str());
    }

    Shared& shared_;
    Journal& journal_;
    const LoadPlan& plan_;
    const std::string folder_;
    const unsigned index_;
    std::mt19937 random_;
    std::unique_ptr<RawClient> socket_;
};

// Starts and kills both sides, and looks at what is left.
class Supervisor {
public:
    explicit Supervisor(const LoadPlan& plan) : plan_(plan), random_(plan.seed)
    {
        std::ofstream(folder_.path() + "/profile.json") << R"({"restart": "reload", "clock": "offset"})";
    }
    ~Supervisor()
    {
        for (unsigned i = 0; i < plan_.clients; i++) end_client(i);
    }
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    LoadReport run()
    {
        const auto begun = Clock::now();
        start_service();
        for (unsigned i = 0; i < plan_.clients; i++) start_client(i);
        while (requests() < plan_.requests && !find_fault()) {
            kill_whose_time_has_come();
            watch_memory();
            pause_a_little();
        }
        report_.seconds = std::chrono::duration<double>(Clock::now() - begun).count();
        report_.memoryAtEnd = memory_of_service();
        stop_clients();
        count();
        if (report_.fault.empty()) check_end();
        return report_;
    }

private:
    unsigned sum(std::atomic<unsigned> Journal::*counter) const
    {
        unsigned total = 0;
        for (unsigned i = 0; i < plan_.clients; i++) total += shared_.at->journal[i].*counter;
        return total;
    }
    unsigned requests() const { return sum(&Journal::requests); }

    void start_service()
    {
        const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
        const int log = open_log_file();
        service_ = Process(
            {.command = {plan_.configd, "--log", "stderr", "--runtime-dir", folder_.path() + "/run", "--state-dir",
                         folder_.path() + "/state", "--profile", folder_.path() + "/profile.json"},
             .input = null,
             .output = log,
             .errors = log});
        close(null);
        close(log);
    }

    int open_log_file() const
    {
        return open((folder_.path() + "/log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    }

    void start_client(unsigned index)
    {
        const unsigned life = lives_[index]++;
        clients_[index] = fork();
        if (clients_[index] != 0) return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(open_log_file(), STDERR_FILENO);  // a stored file is looked at as the service does it, which logs
        Client(*shared_.at, plan_, folder_.path(), index, life).work();
        _exit(EXIT_SUCCESS);
    }
    void end_client(unsigned index)
    {
        if (clients_[index] <= 0) return;
        kill(clients_[index], SIGKILL);
        waitpid(clients_[index], nullptr, 0);
        clients_[index] = 0;
    }

    // The kills of clients are spread over the whole, those of the service over the first three quarters: in the last
    // one its memory is watched.
    void kill_whose_time_has_come()
    {
        const std::uint64_t done = requests();
        if (report_.clientKills < plan_.clientKills &&
            done * (plan_.clientKills + 1) / plan_.requests > report_.clientKills) {
            const unsigned victim = static_cast<unsigned>(random_() % plan_.clients);
            end_client(victim);
            start_client(victim);
            report_.clientKills++;
        }
        const std::uint64_t whileKilling = plan_.requests * 3ULL / 4;
        if (report_.serviceKills < plan_.serviceKills &&
            done * (plan_.serviceKills + 1) / whileKilling > report_.serviceKills) {
            service_.end();
            start_service();
            report_.serviceKills++;
        }
    }

    // Its own, not what it shares with its file and its libraries.
    long memory_of_service() const
    {
        std::ifstream file("/proc/" + std::to_string(service_.id()) + "/status");
        constexpr char kOwn[] = "RssAnon:";
        for (std::string line; std::getline(file, line);)
            if (line.starts_with(kOwn)) return std::strtol(line.c_str() + sizeof kOwn - 1, nullptr, 10);
        return 0;
    }
    void watch_memory()
    {
        if (report_.memoryAtWork == 0 && requests() > plan_.requests * 17ULL / 20)
            report_.memoryAtWork = memory_of_service();
    }

    bool find_fault()
    {
        for (unsigned i = 0; i < plan_.clients && report_.fault.empty(); i++) {
            const char* fault = shared_.at->journal[i].fault;
            if (fault[0])
                report_.fault = fault;
            else if (waitpid(clients_[i], nullptr, WNOHANG) == clients_[i])
                report_.fault = "client " + std::to_string(i) + " ended by itself";
        }
        if (report_.fault.empty() && !service_.running()) report_.fault = "the service ended by itself";
        return !report_.fault.empty();
    }

    // Each has the answer to its last request then, and has looked at what became of it.
    void stop_clients()
    {
        shared_.at->stop = true;
        const Deadline deadline(kPatience);
        for (unsigned i = 0; i < plan_.clients; i++) {
            while (clients_[i] > 0 && waitpid(clients_[i], nullptr, WNOHANG) == 0) {
                if (deadline.passed()) break;
                pause_a_little();
            }
            if (deadline.passed() && report_.fault.empty()) report_.fault = "client " + std::to_string(i) + " hangs";
            if (!deadline.passed()) clients_[i] = 0;
        }
        find_fault_in_journals();
    }
    void find_fault_in_journals()
    {
        for (unsigned i = 0; i < plan_.clients && report_.fault.empty(); i++)
            report_.fault = shared_.at->journal[i].fault;
    }

    void count()
    {
        report_.requests = requests();
        report_.changes = sum(&Journal::answered);
        report_.saves = sum(&Journal::saves);
        for (unsigned i = 0; i < plan_.clients; i++)
            report_.slowestAnswer = std::max(report_.slowestAnswer, shared_.at->journal[i].slowest / 1e6);
    }

    // What is running survives a kill, and what is saved then the loss of all that is not stored.
    void check_end()
    {
        restart_service();
        check_all("running");
        if (!report_.fault.empty()) return;
        RawClient(socket()).ask(code::kSaveConfiguration);
        service_.end();
        std::filesystem::remove_all(folder_.path() + "/run");
        restart_service();
        check_all("saved");
    }
    void restart_service()
    {
        service_.end();
        start_service();
        for (const Deadline deadline(kPatience); !deadline.passed(); pause_a_little())
            if (RawClient(socket()).ask(code::kReadSystem)) return;
        report_.fault = "the service does not start again";
    }
    std::string socket() const { return folder_.path() + "/run/configd.sock"; }

    void check_all(const char* which)
    {
        RawClient client(socket());
        Observed now;
        if (!now.read([&client](const ComParam& request) { return client.ask(request); })) {
            report_.fault = "the service does not answer";
            return;
        }
        for (unsigned i = 0; i < plan_.clients && report_.fault.empty(); i++) {
            const Journal& journal = shared_.at->journal[i];
            if (now.number_of(i, journal.answered, journal.begun)) continue;
            report_.fault = std::string("the ") + which + " configuration is without change " +
                            std::to_string(journal.answered) + " of client " + std::to_string(i) + ":" +
                            now.describe(i);
        }
    }

    const LoadPlan& plan_;
    std::mt19937 random_;
    TemporaryFolder folder_;
    SharedMemory shared_;
    Process service_;
    pid_t clients_[kMostOwners] = {};
    unsigned lives_[kMostOwners] = {};
    LoadReport report_;
};
}  // namespace

LoadReport run_load(const LoadPlan& plan) { return Supervisor(plan).run(); }
