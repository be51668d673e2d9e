#include "base/system_converter.h"

#include <iconv.h>

#include <array>

#include <QByteArray>

#include <gtest/gtest.h>

std::optional<char16_t> SystemTextOf(int code_page, int value) {
  const QByteArray name = "WINDOWS-" + QByteArray::number(code_page);
  const iconv_t converter = iconv_open("UTF-16LE", name.constData());
  EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << name.constData();
  char byte = static_cast<char>(value);
  char* in = &byte;
  std::size_t in_left = 1;
  std::array<unsigned char, 2> text = {};
  char* out = reinterpret_cast<char*>(text.data());
  std::size_t out_left = text.size();
  // A letter that a mark might follow comes out only when the converter is told that none does.
  const bool is_read = iconv(converter, &in, &in_left, &out, &out_left) == 0 &&
                       iconv(converter, nullptr, nullptr, &out, &out_left) == 0;
  iconv_close(converter);
  if (!is_read || out_left != 0) return std::nullopt;
  return static_cast<char16_t>(text[0] | text[1] << 8);
}
