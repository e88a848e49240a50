#include "AppleScript/Syntax/ReferenceParser.h"

#include <ranges>
#include <utility>

#include "AppleScript/Expressions/Operations.h"
#include "AppleScript/References/ReferenceExpression.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/HeadParser.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

ExpressionPointer ReferenceParser::parse() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  ExpressionPointer reference = parseReference();
  if (!tokens.acceptWord(Keyword::exists))
    return reference;
  return std::make_unique<ExistsExpression>(std::move(reference), tokens.rangeSince(start));
}

ExpressionPointer ReferenceParser::parseReference() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  std::vector<Part> parts;
  if (tokens.atWord(Keyword::count) && !tokens.atWord(Keyword::of, 1)) {
    tokens.skip(1);
    parts.emplace_back().links.push_back(ReferenceHead::ofCount().link);
  }
  do {
    parts.push_back(parsePart());
  } while (parts.back().base == nullptr && acceptOf());
  parseFilter(parts);
  ExpressionPointer base = std::move(parts.back().base);
  std::vector<ReferenceFormPointer> forms = joined(parts);
  if (forms.empty())
    return base;
  return std::make_unique<ReferenceExpression>(std::move(base), std::move(forms), tokens.rangeSince(start));
}

ReferenceParser::Part ReferenceParser::parsePart() {
  HeadParser heads(context_);
  ReferenceHead head = heads.parse();
  Part part{std::move(head.expression), {}};
  if (part.base == nullptr)
    part.links.push_back(std::move(head.link));
  while (context_.tokens().acceptSymbol("'s"))
    part.links.push_back(heads.parseMember());
  return part;
}

bool ReferenceParser::acceptOf() {
  TokenStream& tokens = context_.tokens();
  return !context_.findLabel() && (tokens.acceptWord(Keyword::of) || tokens.acceptWord(Keyword::in));
}

/// The elements that a filter behind these parts is meant for: those that stand next to it. Null where there are none.
ElementForm* ReferenceParser::findFilterable(std::vector<Part>& parts) {
  for (Part& part : std::views::reverse(parts)) {
    for (ReferenceLink& link : part.links)
      if (link.elements != nullptr && link.elements->invitesFilter())
        return link.elements;
  }
  return nullptr;
}

void ReferenceParser::parseFilter(std::vector<Part>& parts) {
  TokenStream& tokens = context_.tokens();
  ElementForm* elements = findFilterable(parts);
  if (elements != nullptr && (tokens.acceptWord(Keyword::whose) || tokens.acceptWord(Keyword::where))) {
    const FilterScope scope(context_);
    elements->setFilter(ExpressionParser(context_).parse());
  }
}

/// The forms of all parts, the one next to the base first. `count of every window` becomes one form.
std::vector<ReferenceFormPointer> ReferenceParser::joined(std::vector<Part>& parts) {
  std::vector<ReferenceFormPointer> forms;
  ElementForm* last = nullptr;
  for (Part& part : std::views::reverse(parts)) {
    for (ReferenceLink& link : part.links) {
      if (link.counts && last != nullptr && last->selectsAll()) {
        last->becomeCount();
        continue;
      }
      last = link.elements;
      forms.push_back(std::move(link.form));
    }
  }
  return forms;
}

}  // namespace AppleScript
