#include "cli/exit_status.h"

#include "model/job.h"
#include "platform/fault.h"
#include "platform/fault_words.h"

#include <algorithm>

namespace pistaro {

int ExitStatusOf(const VerbJob& job, const VerbContext& context) {
    try {
        job(context);
        FlushOutput(context);
        return 0;
    } catch (const Stopped&) {
        constexpr int interrupted = 130; // 128 and the number of the signal, as shells tell it
        return interrupted;
    } catch (const BadResult&) {
        context.Output.flush();
        return 1;
    } catch (const std::exception& fault) {
        context.Errors << "pistaro: " << OnOneLine(WordsOf(fault)) << '\n';
        return 1;
    }
}

std::string OnOneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return text;
}

} // namespace pistaro
