#include <gtest/gtest.h>

#include "dots_as_text.h"

namespace PanelDots {
namespace {

const std::string kOld =
    "rrrrrrrr\n"
    "r......r\n"
    "r......r\n"
    "rrrrrrrr\n";
const std::string kNew =
    "gy....yg\n"
    ".gy..yg.\n"
    "..gyyg..\n"
    "...gg...\n";

struct EffectCase {
  char code;
  double progress;
  std::string shown;
};

void PrintTo(const EffectCase& effect, std::ostream* out) {
  *out << effect.code << " at " << effect.progress;
}

class EntryEffects : public testing::TestWithParam<EffectCase> {};

TEST_P(EntryEffects, ShowWhatBelongsToTheirProgress) {
  const EffectCase& effect = GetParam();
  EXPECT_EQ(Shown(Transition(Matrix(kOld), Matrix(kNew), effect.code, effect.progress)),
            effect.shown);
}

INSTANTIATE_TEST_SUITE_P(Appear, EntryEffects,
                         testing::Values(EffectCase{'A', 0, kOld}, EffectCase{'A', 0.01, kNew},
                                         EffectCase{'A', 1, kNew}, EffectCase{'X', 0.5, kNew}));
INSTANTIATE_TEST_SUITE_P(Flip, EntryEffects,
                         testing::Values(EffectCase{'B', 0, kOld},
                                         EffectCase{'B', 0.25,
                                                    "........\n"
                                                    "r......r\n"
                                                    "rrrrrrrr\n"
                                                    "........\n"},
                                         EffectCase{'B', 0.5,
                                                    "........\n"
                                                    "........\n"
                                                    "........\n"
                                                    "........\n"},
                                         EffectCase{'B', 0.75,
                                                    "........\n"
                                                    ".gy..yg.\n"
                                                    "...gg...\n"
                                                    "........\n"},
                                         EffectCase{'B', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Open, EntryEffects,
                         testing::Values(EffectCase{'C', 0, kOld},
                                         EffectCase{'C', 0.5,
                                                    "rr....rr\n"
                                                    "r.y..y.r\n"
                                                    "r.gyyg.r\n"
                                                    "rr.gg.rr\n"},
                                         EffectCase{'C', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(WipeRight, EntryEffects,
                         testing::Values(EffectCase{'D', 0, kOld},
                                         EffectCase{'D', 0.5,
                                                    "gy..rrrr\n"
                                                    ".gy....r\n"
                                                    "..gy...r\n"
                                                    "...grrrr\n"},
                                         EffectCase{'D', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(WipeLeft, EntryEffects,
                         testing::Values(EffectCase{'E', 0, kOld},
                                         EffectCase{'E', 0.5,
                                                    "rrrr..yg\n"
                                                    "r....yg.\n"
                                                    "r...yg..\n"
                                                    "rrrrg...\n"},
                                         EffectCase{'E', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Fall, EntryEffects,
                         testing::Values(EffectCase{'F', 0, kOld},
                                         EffectCase{'F', 0.5,
                                                    "..gyyg..\n"
                                                    "...gg...\n"
                                                    "r......r\n"
                                                    "rrrrrrrr\n"},
                                         EffectCase{'F', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Slide, EntryEffects,
                         testing::Values(EffectCase{'G', 0, kOld},
                                         EffectCase{'G', 0.5,
                                                    "rrrrgy..\n"
                                                    "r....gy.\n"
                                                    "r.....gy\n"
                                                    "rrrr...g\n"},
                                         EffectCase{'G', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Shift, EntryEffects,
                         testing::Values(EffectCase{'H', 0, kOld},
                                         EffectCase{'H', 0.5,
                                                    "rrrrgy..\n"
                                                    "...r.gy.\n"
                                                    "...r..gy\n"
                                                    "rrrr...g\n"},
                                         EffectCase{'H', 1, kNew}));

}  // namespace
}  // namespace PanelDots
