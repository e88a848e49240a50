#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "AppleScript/Syntax/Terminology.h"
#include "AppleScript/Syntax/TokenStream.h"
#include "AppleScript/Syntax/VariableTable.h"
#include "AppleScript/Values/Application.h"

namespace AppleScript {

/// What the parsers of statements, expressions and references share: the tokens, the variables, and the words that
/// apply at the place reached.
class ParseContext {
 public:
  ParseContext(std::vector<Token> tokens, ApplicationDirectory& applications);

  [[nodiscard]] TokenStream& tokens() { return tokens_; }
  [[nodiscard]] VariableTable& variables() { return variables_; }
  [[nodiscard]] ApplicationDirectory& applications() { return applications_; }

  /// The longest phrase of one of these kinds that stands `ahead` places further on. Of several equally long, that of
  /// the innermost `tell` block; the language's own come last.
  [[nodiscard]] std::optional<Term> findTerm(std::initializer_list<TermKind> kinds, std::size_t ahead = 0) const;

  /// Whether a property that stands alone is one of `it`: so in `tell` blocks and filters.
  [[nodiscard]] bool hasTarget() const { return targets_ > 0; }

  /// The label of a parameter, of the command that is being read, that stands `ahead` places further on; the longest
  /// one.
  [[nodiscard]] std::optional<std::string_view> findLabel(std::size_t ahead = 0) const;

  /// "Expected … but found …."
  [[noreturn]] void failExpecting(std::string_view wanted) const;
  void expectWord(std::string_view word);
  void expectSymbol(std::string_view symbol);
  void expectLineEnd();

 private:
  friend class NestingScope;
  friend class TellScope;
  friend class FilterScope;
  friend class LabelScope;

  [[nodiscard]] std::string describeFound() const;
  [[nodiscard]] const Terminology* terminologyOf(Application* application);

  TokenStream tokens_;
  ApplicationDirectory& applications_;
  VariableTable variables_;
  std::unordered_map<Application*, std::unique_ptr<const Terminology>> terminologies_;
  /// Those of the `tell` blocks around, the innermost last.
  std::vector<const Terminology*> active_;
  std::size_t targets_ = 0;
  std::size_t nesting_ = 0;
  const CommandDescription* command_ = nullptr;
};

}  // namespace AppleScript
