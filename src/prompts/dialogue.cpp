#include "prompts/dialogue.h"

#include <algorithm>

#include "prompts/prompts.h"

namespace {
void ask(const Question& question, const char* shown)
{
    const char* text = question.wording ? question.wording() : question.text;
    if (question.number)
        CliPromptX(text, static_cast<int>(question.number()));
    else if (shown)
        CliPromptX(text, shown);
    else if (question.shown)
        CliPromptX(text, question.shown());
    else
        CliPromptX("%s", text);
}

// Moves to a question and asks it; a stage that is none of the dialogue's ends it.
std::uint32_t move_to(std::span<const Question> questions, ActionBlock& call, const Next& next)
{
    const auto question = std::ranges::find(questions, next.stage, &Question::stage);
    if (question == questions.end()) return call.stage = 0;
    ask(*question, next.shown);
    return call.stage = next.stage;
}
}  // namespace

std::uint32_t run_dialogue(std::span<const Question> questions, ActionBlock& call, int term)
{
    if (call.stage == 0) return move_to(questions, call, {questions.front().stage});

    const auto question = std::ranges::find(questions, call.stage, &Question::stage);
    if (question == questions.end()) return call.stage = 0;

    Answer answer{.given = *answer_text(call) != '\0', .value = 0, .text = answer_text(call)};
    if (answer.given && question->validate) {
        // The value is taken out of the vector again: a dialogue can ask for ever and the vector holds 20 words.
        const Word kept = call.parms.count;
        const std::uint32_t refusal = question->validate(answer.text, call.parms);
        if (call.parms.count > kept) answer.value = call.parms.value[kept];
        call.parms.count = kept;
        if (refusal != kOk) {
            PrintMsg(term, refusal);
            CliPromptLast();
            return call.stage;
        }
    }

    const Next next = question->after(answer);
    if (next.refusal != kOk) PrintMsg(term, next.refusal);
    return move_to(questions, call, next);
}

char* answer_text(const ActionBlock& call) { return reinterpret_cast<char*>(call.parms.value[call.parms.count]); }
