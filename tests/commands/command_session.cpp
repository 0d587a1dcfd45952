#include "commands/command_session.h"

#include <algorithm>
#include <cstring>

#include "support/written.h"

namespace {
struct Pair {
    std::uint16_t write, read;
};
constexpr Pair kPairs[] = {
    {code::kWriteDhcpServer, code::kReadDhcpServer},
    {code::kWriteNtpClient, code::kReadTime},
    {code::kWriteTime, code::kReadTime},
    {code::kWriteAddress, code::kReadAddress},
    {code::kWriteOperationMode, code::kReadOperationMode},
    {code::kWriteWirelessSettings, code::kReadWirelessSettings},
};
}  // namespace

CommandSession::CommandSession()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    service_stand_in::reset([this](ComParam& request, std::string& table) { return serve(request, table); });
}

CommandSession::~CommandSession()
{
    EXPECT_EQ(service_stand_in::unreleased(), 0);
    service_stand_in::reset();
}

std::uint32_t CommandSession::serve(ComParam& request, std::string& table)
{
    const auto asked = static_cast<std::uint16_t>(record::code.get(request));
    if (const auto failing = exchangeFails.find(asked); failing != exchangeFails.end()) return failing->second;
    if (const auto status = refused.find(asked); status != refused.end()) {
        record::status.set(request, status->second);
        return 0;
    }
    table = tables_[asked];
    if (serve_otherwise(request)) return 0;
    const auto* pair = std::ranges::find(kPairs, asked, &Pair::write);
    if (pair != std::end(kPairs)) records_[pair->read] = request;
    if (const auto kept = records_.find(asked); kept != records_.end()) {
        request = kept->second;
        fill(request, record::kind, record::kRequest, record::code, asked);
    }
    return 0;
}

std::string CommandSession::run(Action command, std::initializer_list<Word> words)
{
    command_ = command;
    call_ = {};
    for (const Word word : words) append_word(call_.parms, word);
    return written_by([this] { command_(call_, 0); });
}

std::string CommandSession::answer(const std::string& text)
{
    std::string typed = text;
    call_.parms.value[call_.parms.count] = reinterpret_cast<Word>(typed.data());
    return written_by([this] { command_(call_, 0); });
}

std::string CommandSession::answers(std::initializer_list<const char*> texts)
{
    std::string printed;
    for (const char* text : texts) printed = answer(text);
    return printed;
}

std::size_t CommandSession::sent(std::uint16_t code)
{
    const auto all = codes();
    return static_cast<std::size_t>(std::ranges::count(all, code));
}

testing::AssertionResult CommandSession::was_sent(const ComParam& wanted)
{
    const auto& all = service_stand_in::requests();
    const auto found = std::find_if(all.rbegin(), all.rend(), [&](const ComParam& each) {
        return record::code.get(each) == record::code.get(wanted);
    });
    if (found == all.rend()) return testing::AssertionFailure() << "no request " << record::code.get(wanted);
    return same_record(*found, wanted);
}

ComParam carrying(std::uint16_t code, const std::string& entry)
{
    ComParam request = request_of(code);
    std::memcpy(carried_entry(request), entry.data(), entry.size());
    return request;
}

testing::AssertionResult same_record(const ComParam& sent, const ComParam& wanted)
{
    for (std::size_t i = 0; i < record::kPayloadEnd; ++i)
        if (sent.bytes[i] != wanted.bytes[i])
            return testing::AssertionFailure()
                   << "byte " << i << " is " << int{sent.bytes[i]} << ", not " << int{wanted.bytes[i]};
    return testing::AssertionSuccess();
}
