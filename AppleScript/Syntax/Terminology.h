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

/// A phrase that means something: words of the language itself or of an application.
struct Term {
  TermKind kind;
  std::string_view phrase;
  /// Null for the words of the language itself.
  Application* application = nullptr;
  /// What it means, according to its kind; a property means its phrase.
  const ClassDescription* classDescription = nullptr;
  const CommandDescription* command = nullptr;
  const Value* constant = nullptr;
  /// How many tokens spell it.
  std::size_t tokenCount = 0;
};

/// The phrases of the language or of one application.
class Terminology {
 public:
  /// The language's own.
  static const Terminology& ofLanguage();
  /// Those of the application's dictionary.
  explicit Terminology(Application& application);

  /// The longest phrase of one of these kinds that the tokens from `ahead` on spell.
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
