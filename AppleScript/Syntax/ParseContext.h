#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "AppleScript/Syntax/Terminology.h"
#include "AppleScript/Syntax/TokenStream.h"
#include "AppleScript/Values/Application.h"

namespace AppleScript {

/// Gives each variable of a script its place.
class VariableTable {
 public:
  /// The place of the variable `name`, whose case does not matter.
  [[nodiscard]] std::size_t slot(std::string_view name);
  [[nodiscard]] std::size_t size() const { return slots_.size(); }

 private:
  std::unordered_map<std::string, std::size_t> slots_;
};

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
  void expectWord(Keyword word);
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

/// What changes in a parse context for the time that a parser is inside something.

/// One level of nesting. Throws a syntax error where that is one too many.
class NestingScope {
 public:
  explicit NestingScope(ParseContext& context);
  ~NestingScope() { --context_.nesting_; }
  NestingScope(const NestingScope&) = delete;
  NestingScope& operator=(const NestingScope&) = delete;

 private:
  ParseContext& context_;
};

/// The inside of a `tell` block, with the words of `application` where that is not null.
class TellScope {
 public:
  TellScope(ParseContext& context, Application* application);
  ~TellScope();
  TellScope(const TellScope&) = delete;
  TellScope& operator=(const TellScope&) = delete;

 private:
  ParseContext& context_;
  std::size_t outer_;
};

/// The inside of a filter.
class FilterScope {
 public:
  explicit FilterScope(ParseContext& context) : context_(context) { ++context_.targets_; }
  ~FilterScope() { --context_.targets_; }
  FilterScope(const FilterScope&) = delete;
  FilterScope& operator=(const FilterScope&) = delete;

 private:
  ParseContext& context_;
};

/// The parameters of `command`, whose labels end an expression; of none, inside parentheses and braces.
class LabelScope {
 public:
  LabelScope(ParseContext& context, const CommandDescription* command)
      : context_(context), outer_(std::exchange(context.command_, command)) {}
  ~LabelScope() { context_.command_ = outer_; }
  LabelScope(const LabelScope&) = delete;
  LabelScope& operator=(const LabelScope&) = delete;

 private:
  ParseContext& context_;
  const CommandDescription* outer_;
};

}  // namespace AppleScript
