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

/// A reference form while the reference is being parsed.
struct ReferenceLink {
  std::unique_ptr<ReferenceForm> form;
  /// The form itself if it is an `ElementForm`, otherwise null.
  ElementForm* elements = nullptr;
  /// Whether the form is `count` or `number`.
  bool counts = false;
};

/// The first part of a reference, or of the text after an `of`: an expression (the base of the reference) or a form.
struct ReferenceHead {
  ExpressionPointer expression;
  ReferenceLink link;

  [[nodiscard]] static ReferenceHead ofExpression(ExpressionPointer expression);
  [[nodiscard]] static ReferenceHead ofForm(std::unique_ptr<ReferenceForm> form);
  [[nodiscard]] static ReferenceHead ofElements(const ClassDescription& elementClass, ElementSelectorPointer selector);
  [[nodiscard]] static ReferenceHead ofProperty(std::string_view name);
  [[nodiscard]] static ReferenceHead ofCount();
};

/// Parses the first part of a reference: a literal, a variable, a command, a property, elements of a class, …
class HeadParser {
 public:
  explicit HeadParser(ParseContext& context) : context_(context) {}

  [[nodiscard]] ReferenceHead parse();
  /// Parses a property or elements, the only things that can follow `'s` and `its`.
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

  /// The meaning of the next words: the longest phrase. Of equally long ones, the next token decides: `window 3` is an
  /// element, `window of x` may be a property.
  [[nodiscard]] std::optional<Term> findTerm() const;
  [[nodiscard]] const ClassDescription& expectClass();
  [[nodiscard]] bool isKeyAhead(std::size_t ahead) const;
  [[nodiscard]] bool isOfAhead() const;

  ParseContext& context_;
};

}  // namespace AppleScript
