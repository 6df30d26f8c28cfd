#include "registry/RegistryTree.h"

#include <algorithm>
#include <cstddef>

#include "values/CodePage.h"

namespace qel {

namespace {

constexpr std::string_view RootBegins = "HKEY_";
constexpr std::ptrdiff_t MostNames = 512;

bool IsControl(char character) { return static_cast<unsigned char>(character) < ' '; }

// "]" with ";" behind it; blanks may stand between them.
bool HoldsKeyEnd(std::string_view path) {
  for (std::size_t at = path.find(']'); at != std::string_view::npos; at = path.find(']', at + 1)) {
    const std::size_t behind = path.find_first_not_of(" \t", at + 1);
    if (behind != std::string_view::npos && path[behind] == ';') return true;
  }
  return false;
}

RegistryTree::iterator FindOrMake(RegistryTree& tree, std::string_view path) {
  if (const auto found = tree.find(path); found != tree.end()) return found;
  const std::size_t last = path.rfind(KeySeparator);
  if (last == std::string_view::npos) return tree.try_emplace(std::string(path)).first;
  const auto parent = FindOrMake(tree, path.substr(0, last));
  // In the case that the parent has.
  return tree.try_emplace(parent->first + std::string(path.substr(last))).first;
}

}  // namespace

std::string DwordBytes(std::uint32_t number) {
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return bytes;
}

std::uint32_t DwordOf(std::string_view bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = std::min<std::size_t>(bytes.size(), 4); i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

bool NoCaseLess::operator()(std::string_view a, std::string_view b) const {
  const auto less = [](char x, char y) {
    return UpperCase(static_cast<unsigned char>(x)) < UpperCase(static_cast<unsigned char>(y));
  };
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less);
}

bool IsKeyPath(std::string_view path) {
  if (!EqualNoCase(path.substr(0, RootBegins.size()), RootBegins)) return false;
  if (std::any_of(path.begin(), path.end(), IsControl) || HoldsKeyEnd(path)) return false;
  if (path.ends_with(KeySeparator) || path.find("\\\\") != std::string_view::npos) return false;
  return std::count(path.begin(), path.end(), KeySeparator) < MostNames;
}

RegistryValues& MakeKey(RegistryTree& tree, std::string_view path) { return FindOrMake(tree, path)->second; }

RegistryRange KeysBelow(const RegistryTree& tree, std::string_view path) {
  // What begins with the path and a separator stands together, before the path with the character that
  // follows the separator.
  constexpr char AfterSeparator = KeySeparator + 1;
  return {tree.lower_bound(std::string(path) + KeySeparator),
          tree.lower_bound(std::string(path) + AfterSeparator)};
}

void RemoveKey(RegistryTree& tree, std::string_view path) {
  const RegistryRange below = KeysBelow(tree, path);
  tree.erase(below.first, below.last);
  if (const auto key = tree.find(path); key != tree.end()) tree.erase(key);
}

}  // namespace qel
