#include "fuzz/targets.h"

namespace Fuzz {
namespace {

constexpr Target kTargets[] = {
    {"code_page", CheckCodePage},           {"coded_text", CheckCodedText},
    {"configuration", CheckConfiguration},  {"ini_file", CheckIniFile},
    {"language_file", CheckLanguageFile},   {"message_file", CheckMessageFile},
    {"message_text", CheckMessageText},     {"panel_engine", CheckPanelEngine},
    {"panel_list", CheckPanelList},         {"schedule_file", CheckScheduleFile},
    {"scrolling_file", CheckScrollingFile},
};

}  // namespace

std::span<const Target> Targets() { return kTargets; }

}  // namespace Fuzz
