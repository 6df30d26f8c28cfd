// A text that fills a mask, while it is typed. "#" is a digit's place, "A" a letter's or digit's; all else in
// the mask stands for itself and separates parts of places. A place that is not filled is "_".
#pragma once

#include <string>
#include <string_view>

namespace qel {

class MaskEntry {
 public:
  // An empty text is that of a mask without a filled place. `mask` must outlive the entry.
  MaskEntry(const std::string& mask, const std::string& text);

  const std::string& Text() const { return text; }
  std::size_t Insertion() const { return at; }

  // Whether the text is one of the mask at all, and whether all its places are filled too.
  bool HasShape() const;
  bool IsWhole() const;

  // Types `typed` in place of `length` characters from `from` on, whose places become blank; nothing typed
  // deletes them, and where they are separators, the place beside them: before them when deleting backward.
  // False, and nothing has happened, where a character of a date or number fits nowhere, or nothing at all
  // does.
  bool Replace(std::size_t from, std::size_t length, std::string_view typed, bool backward);

  // Completes a year of two digits where it is all that the text lacks. "19" and "20" stay: they may be the
  // beginning of four digits.
  void CompleteYear();

 private:
  bool IsPlace(std::size_t place) const;
  bool Takes(std::size_t place, char c) const;
  std::size_t NextPlace(std::size_t from) const;
  void Blank(std::size_t from, std::size_t end);
  bool Delete(std::size_t from, std::size_t length, bool backward);
  bool Type(char c);
  bool EndPart();
  bool Complete(std::size_t begin, std::size_t end);

  const std::string& mask;
  std::string text;
  std::size_t at = 0;  // the insertion point
};

}  // namespace qel
