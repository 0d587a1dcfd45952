// The C library's look-ups of users, groups and hosts for a program without shared libraries. Its own are made to load
// modules and bring half a console of code along; a device has the files and DNS, and nothing else to ask.
#include <algorithm>
#include <arpa/inet.h>
#include <arpa/nameser.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <grp.h>
#include <memory>
#include <netdb.h>
#include <pwd.h>
#include <resolv.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr int kMostGroups = 64;

struct Close {
    void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, Close>;

struct Free {
    void operator()(char* text) const { std::free(text); }
};

// A file as it is now, in memory: the C library asks for its place in the file with each entry that it reads.
class FileInMemory {
public:
    explicit FileInMemory(const char* path)
    {
        const File file(std::fopen(path, "re"));
        struct stat found {};
        if (!file || fstat(fileno(file.get()), &found) != 0 || found.st_size <= 0) return;
        const auto size = static_cast<std::size_t>(found.st_size);
        text_.reset(static_cast<char*>(std::malloc(size)));
        const std::size_t got = text_ ? std::fread(text_.get(), 1, size, file.get()) : 0;
        if (got > 0) entries_.reset(fmemopen(text_.get(), got, "r"));
    }
    FILE* get() const { return entries_.get(); }

private:
    std::unique_ptr<char, Free> text_;
    File entries_;
};

// The first entry that fits; it is the C library's until its next call.
template <class Entry, class Fits> Entry* find_entry(const char* path, Entry* (*next)(FILE*), Fits fits)
{
    const FileInMemory file(path);
    while (Entry* entry = file.get() ? next(file.get()) : nullptr)
        if (fits(*entry)) return entry;
    return nullptr;
}

// A line is an address and the names that it has.
bool address_in_hosts(const char* name, in_addr& address)
{
    const File file(std::fopen("/etc/hosts", "re"));
    char line[512];
    while (file && std::fgets(line, sizeof line, file.get())) {
        line[std::strcspn(line, "#\n")] = '\0';
        char* rest = nullptr;
        const char* word = strtok_r(line, " \t", &rest);
        if (!word || inet_aton(word, &address) == 0) continue;
        while ((word = strtok_r(nullptr, " \t", &rest)))
            if (strcasecmp(word, name) == 0) return true;
    }
    return false;
}

bool address_in_dns(const char* name, in_addr& address)
{
    unsigned char answer[NS_PACKETSZ];
    const int size = res_search(name, ns_c_in, ns_t_a, answer, sizeof answer);
    ns_msg message;
    if (size < 0 || ns_initparse(answer, std::min<int>(size, sizeof answer), &message) != 0) return false;
    for (int i = 0; i < ns_msg_count(message, ns_s_an); i++) {
        ns_rr record;
        if (ns_parserr(&message, ns_s_an, i, &record) != 0) return false;
        if (ns_rr_type(record) != ns_t_a || ns_rr_rdlen(record) != sizeof address) continue;
        std::memcpy(&address, ns_rr_rdata(record), sizeof address);
        return true;
    }
    return false;
}
}  // namespace

extern "C" {
passwd* getpwnam(const char* name)
{
    return find_entry("/etc/passwd", fgetpwent,
                      [name](const passwd& user) { return !std::strcmp(user.pw_name, name); });
}

void endpwent() {}  // nothing stays open

group* getgrnam(const char* name)
{
    return find_entry("/etc/group", fgetgrent, [name](const group& one) { return !std::strcmp(one.gr_name, name); });
}

int initgroups(const char* user, gid_t own)
{
    gid_t groups[kMostGroups] = {own};
    std::size_t count = 1;
    find_entry("/etc/group", fgetgrent, [&](const group& one) {
        for (char** member = one.gr_mem; *member && count < kMostGroups; member++)
            if (one.gr_gid != own && std::strcmp(*member, user) == 0) groups[count++] = one.gr_gid;
        return false;
    });
    return setgroups(count, groups);
}

hostent* gethostbyname(const char* name)
{
    static in_addr address;
    static char* addresses[] = {reinterpret_cast<char*>(&address), nullptr};
    static char* aliases[] = {nullptr};
    static hostent host;
    if (inet_aton(name, &address) == 0 && !address_in_hosts(name, address) && !address_in_dns(name, address)) {
        h_errno = HOST_NOT_FOUND;
        return nullptr;
    }
    host = {.h_name = const_cast<char*>(name),
            .h_aliases = aliases,
            .h_addrtype = AF_INET,
            .h_length = sizeof address,
            .h_addr_list = addresses};
    return &host;
}
}
