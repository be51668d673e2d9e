// Why something that the operator asked for is not done: what every check of an order answers with.
#pragma once

#include <QString>

namespace Brivon1 {

/// Both texts are as they are shown, in the operator's language.
struct Refusal {
  QString text;
  QString remedy;  ///< Why, and what to do about it; empty where the text says it.
};

}  // namespace Brivon1
