// What the boxes for a panel lack.
#include <gtest/gtest.h>

#include "config/configuration_draft.h"

using namespace Qt::StringLiterals;

using Brivon1::InputRemedy;
using Brivon1::PanelBoxes;

namespace {

PanelBoxes Right() { return {u"1"_s, u"4"_s, u"96"_s, Brivon1::kTri, u"192.168.0.20"_s, u"80"_s}; }

TEST(InputRemedyTest, TheFirstBoxThatIsWrongIsNamedWithWhatItTakes) {
  const auto remedy = [](QString PanelBoxes::*box, const QString& text) {
    PanelBoxes boxes = Right();
    boxes.*box = text;
    return InputRemedy(boxes).toStdString();
  };
  EXPECT_EQ(remedy(&PanelBoxes::id, {}), "Enter an ID number from 0 to 255.");
  EXPECT_EQ(remedy(&PanelBoxes::id, u"256"_s), "Enter an ID number from 0 to 255.");
  EXPECT_EQ(remedy(&PanelBoxes::rows, {}), "Enter 1 to 12 rows.");
  EXPECT_EQ(remedy(&PanelBoxes::columns, {}), "Enter 1 to 3000 dot columns.");
  EXPECT_EQ(remedy(&PanelBoxes::port, u"65536"_s),
            "Enter a port from 1 to 65535, or none for port 80.");
}

TEST(InputRemedyTest, AnEntryThatIsTooLongForTheFileSaysSo) {
  PanelBoxes boxes{u"255"_s, u"12"_s, u"3000"_s, Brivon1::kMono, u"192.168.100.200"_s, u"65535"_s};
  ASSERT_EQ(Brivon1::ConfigurationDraft({}).Add(boxes), Brivon1::AddResult::kAdded);
  EXPECT_EQ(InputRemedy(boxes), QString());
  boxes.port = u"0000065535"_s;
  ASSERT_EQ(Brivon1::ConfigurationDraft({}).Add(boxes), Brivon1::AddResult::kInvalidInput);
  EXPECT_EQ(InputRemedy(boxes),
            u"The entry of a panel has at most 34 characters in the file: enter a port of fewer "
            "digits."_s);
}

TEST(AddressRemedyTest, WhatWasEnteredIsRepeatedAsItIs) {
  EXPECT_EQ(Brivon1::AddressRemedy(u"1.%1.255"_s),
            u"\"1.%1.255\" is not four numbers from 0 to 254 with points between them."_s);
}

TEST(InputRemedyTest, APanelNeedsNone) {
  EXPECT_EQ(InputRemedy(Right()), QString());
  PanelBoxes without_port = Right();
  without_port.port.clear();
  EXPECT_EQ(InputRemedy(without_port), QString());
}

}  // namespace
