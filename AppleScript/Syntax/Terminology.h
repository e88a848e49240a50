#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "AppleScript/Syntax/TokenStream.h"
#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/BuiltIns.h"

namespace AppleScript {

enum class TermKind : std::uint8_t { className, pluralClassName, property, command, constant };

/// A phrase of the language or of an application.
struct Term {
  TermKind kind;
  std::string_view phrase;
  /// Null for the language's own phrases.
  Application* application = nullptr;
  /// The meaning, depending on the kind; null for the others. A property is known by its phrase.
  const ClassDescription* classDescription = nullptr;
  const CommandDescription* command = nullptr;
  const Value* constant = nullptr;
  /// The number of tokens that spell it.
  std::size_t tokenCount = 0;
};

/// The phrases of the language or of one application.
class Terminology {
 public:
  /// The language's own.
  static const Terminology& ofLanguage();
  /// Those of the application's dictionary.
  explicit Terminology(Application& application);

  /// The longest phrase of one of these kinds at the token `ahead` positions from here.
  [[nodiscard]] std::optional<Term> longest(const TokenStream& tokens, std::size_t ahead,
                                            std::initializer_list<TermKind> kinds) const;

 private:
  Terminology();
  void add(const Term& term);
  void addClass(const ClassDescription& description, Application* application);
  void addProperties(const ClassDescription& description, Application& application);

  /// By their first word, in lower case.
  std::unordered_map<std::string, std::vector<Term>> terms_;
};

}  // namespace AppleScript
