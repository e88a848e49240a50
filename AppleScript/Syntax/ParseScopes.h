#pragma once

#include <cstddef>
#include <utility>

#include "AppleScript/Syntax/ParseContext.h"

/// What changes in a parse context for the time that a parser is inside something.
namespace AppleScript {

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
