// What the log says about a request: who asked, every setting that it has changed with its value before and after,
// every refusal of a change, and, where its facility is traced, each request there is.
#pragma once

#include "configd/asker.h"
#include "configd/service.h"

class RequestLog {
public:
    RequestLog(Service& service, const ComParam& request, const Asker& asker);
    void done(ServiceStatus status);

private:
    bool log_changes(int level) const;

    Service& service_;
    std::uint32_t code_;
};

// Whether the log knows what the code is about.
bool is_logged(std::uint32_t code);
