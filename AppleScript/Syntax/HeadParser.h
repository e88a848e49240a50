#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ElementForm.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// A reference form while it is being read, with what is known about it.
struct ReferenceLink {
  std::unique_ptr<ReferenceForm> form;
  /// The form itself, where it is one of elements.
  ElementForm* elements = nullptr;
  /// Whether it is `count` or `number`.
  bool counts = false;
};

/// What a reference, or what stands behind an `of`, begins with: an expression to build on or, where that is null, a
/// form.
struct ReferenceHead {
  ExpressionPointer expression;
  ReferenceLink link;

  [[nodiscard]] static ReferenceHead ofExpression(ExpressionPointer expression);
  [[nodiscard]] static ReferenceHead ofForm(std::unique_ptr<ReferenceForm> form);
  [[nodiscard]] static ReferenceHead ofElements(const ClassDescription& elementClass, ElementSelectorPointer selector);
  [[nodiscard]] static ReferenceHead ofProperty(std::string_view name);
  [[nodiscard]] static ReferenceHead ofCount();
};

/// Reads what a reference begins with: a literal, a variable, a command, a property, elements of a class, …
class HeadParser {
 public:
  explicit HeadParser(ParseContext& context) : context_(context) {}

  [[nodiscard]] ReferenceHead parse();
  /// A property or elements, where nothing else can stand: behind `'s` and `its`.
  [[nodiscard]] ReferenceLink parseMember();

 private:
  [[nodiscard]] ReferenceHead parseWord();
  [[nodiscard]] std::optional<ReferenceHead> parseKeyword();
  [[nodiscard]] std::optional<ReferenceHead> parseInsertion();
  [[nodiscard]] std::optional<ReferenceHead> parsePosition();
  [[nodiscard]] ReferenceHead parseOrdinal(std::int64_t number);
  [[nodiscard]] ReferenceHead parseNumberedOrdinal();
  [[nodiscard]] ReferenceHead parseTerm(const Term& term);
  [[nodiscard]] ReferenceHead parseProperty(const Term& term);
  [[nodiscard]] ReferenceHead parseClass(const Term& term);
  [[nodiscard]] ReferenceHead parseKeyed(const ClassDescription& elementClass);
  [[nodiscard]] ReferenceHead parsePlural(const Term& term);
  [[nodiscard]] ExpressionPointer parseApplication(std::size_t start);
  [[nodiscard]] ReferenceHead parseIdentifier();

  /// What the words at the place reached mean: the longest phrase and, of equally long ones, what the words behind it
  /// make likely.
  [[nodiscard]] std::optional<Term> findTerm() const;
  [[nodiscard]] const ClassDescription& expectClass();
  [[nodiscard]] bool isKeyAhead(std::size_t ahead) const;
  [[nodiscard]] bool isOfAhead() const;

  ParseContext& context_;
};

}  // namespace AppleScript
