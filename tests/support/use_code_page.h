// A code page for the time of a test.
#pragma once

#include "base/code_page.h"

class UseCodePage {
 public:
  explicit UseCodePage(int number) : before_(Brivon1::CodePage::System().Number()) {
    Brivon1::CodePage::SetSystem(number);
  }
  ~UseCodePage() { Brivon1::CodePage::SetSystem(before_); }

  UseCodePage(const UseCodePage&) = delete;
  UseCodePage& operator=(const UseCodePage&) = delete;

 private:
  int before_;
};
