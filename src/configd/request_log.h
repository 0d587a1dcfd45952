// What the system log says about a request: every change of a setting, every refusal of one, and, where its facility is
// traced, each request there is.
#pragma once

#include "configd/service.h"

class RequestLog {
public:
    RequestLog(const Service& service, const ComParam& request);
    void done(ServiceStatus status);

private:
    const Service& service_;
    std::uint32_t code_;
};

// Whether the log knows what the code is about.
bool is_logged(std::uint32_t code);
