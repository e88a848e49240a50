#include "AppleScript/Syntax/Terminology.h"

#include <algorithm>
#include <array>

#include "AppleScript/References/BuiltInProperties.h"
#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/BuiltIns.h"

namespace AppleScript {

namespace {

namespace Classes = BuiltInClasses;

constexpr std::array allClasses{&Classes::item,       &Classes::character,      &Classes::word,    &Classes::paragraph,
                                &Classes::textItem,   &Classes::number,         &Classes::integer, &Classes::real,
                                &Classes::boolean,    &Classes::list,           &Classes::record,  &Classes::file,
                                &Classes::alias,      &Classes::classOfClasses, &Classes::script,  &Classes::constant,
                                &Classes::application};

/// Further phrases for the language's classes.
struct Synonym {
  std::string_view phrase;
  const ClassDescription* meaning;
};

constexpr std::array synonyms{Synonym{"text", &Classes::text}, Synonym{"string", &Classes::text},
                              Synonym{"Unicode text", &Classes::text}, Synonym{"POSIX file", &Classes::file},
                              Synonym{"app", &Classes::application}};

}  // namespace

const Terminology& Terminology::ofLanguage() {
  static const Terminology terminology;
  return terminology;
}

Terminology::Terminology() {
  for (const ClassDescription* description : allClasses)
    addClass(*description, nullptr);
  for (const auto& [phrase, meaning] : synonyms)
    add({.kind = TermKind::className, .phrase = phrase, .classDescription = meaning});
  for (const BuiltInProperty& property : builtInProperties())
    add({.kind = TermKind::property, .phrase = property.name});
  for (const ConstantPhrase& constantPhrase : constantPhrases())
    add({.kind = TermKind::constant, .phrase = constantPhrase.phrase, .constant = &constantPhrase.value});
}

Terminology::Terminology(Application& application) {
  const Dictionary& dictionary = application.dictionary();
  // The application's own class goes by the language's word: `application "X"` may name another one.
  addProperties(*dictionary.application, application);
  for (const ClassDescription* description : dictionary.classes) {
    if (description != dictionary.application) {
      addClass(*description, &application);
      addProperties(*description, application);
    }
  }
  for (const CommandDescription& command : dictionary.commands)
    add({.kind = TermKind::command, .phrase = command.name, .application = &application, .command = &command});
}

void Terminology::addClass(const ClassDescription& description, Application* application) {
  add({.kind = TermKind::className,
       .phrase = description.name,
       .application = application,
       .classDescription = &description});
  add({.kind = TermKind::pluralClassName,
       .phrase = description.plural,
       .application = application,
       .classDescription = &description});
}

void Terminology::addProperties(const ClassDescription& description, Application& application) {
  for (const PropertyDescription& property : description.properties)
    add({.kind = TermKind::property, .phrase = property.name, .application = &application});
}

void Terminology::add(const Term& term) {
  auto& terms = terms_[lowerCase(term.phrase.substr(0, term.phrase.find(' ')))];
  const bool known = std::ranges::any_of(
      terms, [&term](const Term& one) { return one.kind == term.kind && sameName(one.phrase, term.phrase); });
  if (!known)
    terms.push_back(term);
}

std::optional<Term> Terminology::longest(const TokenStream& tokens, std::size_t ahead,
                                         std::initializer_list<TermKind> kinds) const {
  std::optional<Term> best;
  const Token& first = tokens.peek(ahead);
  const auto candidates = first.kind == TokenKind::word ? terms_.find(lowerCase(first.lexeme)) : terms_.end();
  if (candidates == terms_.end())
    return best;
  for (const Term& term : candidates->second) {
    const bool isWanted = std::ranges::find(kinds, term.kind) != kinds.end();
    const std::size_t count = isWanted ? tokens.matchPhrase(term.phrase, ahead) : 0;
    if (count > (best ? best->tokenCount : 0)) {
      best = term;
      best->tokenCount = count;
    }
  }
  return best;
}

}  // namespace AppleScript
