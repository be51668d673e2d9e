// What the tests of translated captions share.
#pragma once

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "support/program_folder.h"
#include "support/text.h"

class CaptionsTest : public testing::Test {
 protected:
  CaptionsTest() {
    folder_.Write(Text("brivon.ini"),
                  "[Dimension Config]\r\nID001=4x96,Mono\r\n[Language]\r\nLanguage=2\r\n");
  }

  ~CaptionsTest() override {
    ModuleLanguage::DialogTitleOpenMsg = Text("Open Message");
    ModuleLanguage::DialogTitleSaveAs = Text("Save As");
    ModuleLanguage::DialogTitleAddMsg = Text("Add Message");
    ModuleLanguage::DialogTitleOpen = Text("Open");
  }

  TemporaryProgramFolder folder_;
};
