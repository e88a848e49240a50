"""Finds the places in a C++ source where a small bug can be planted, and plants bugs there.

Such a place is called a site. It has the edits that let the environment switch its bug on at run time (see Planted.h), so one
build has all bugs. Code that is evaluated at compile time has no sites.
"""

import collections
import re

from clang.cindex import CursorKind, Index, TranslationUnit, TypeKind

# Texts to insert before and after a part of the source. NUMBER stands for the number of the bug.
Frame = collections.namedtuple("Frame", "begin end before after")
# The change is a description in words. operator is None, or the offsets of a text that a comma replaces.
Site = collections.namedtuple("Site", "file line begin end change frames operator")

FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE, CursorKind.LAMBDA_EXPR}
# What is evaluated at compile time.
COMPILE_TIME = {CursorKind.STATIC_ASSERT, CursorKind.ENUM_CONSTANT_DECL, CursorKind.TEMPLATE_NON_TYPE_PARAMETER,
                CursorKind.CONCEPT_DECL, CursorKind.TYPE_REF, CursorKind.TEMPLATE_REF}
INTEGERS = {TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.SHORT,
            TypeKind.USHORT, TypeKind.UCHAR, TypeKind.SCHAR}
ORDERS = {"<": ("less", "<="), "<=": ("lessOrEqual", "<"), ">": ("greater", ">="), ">=": ("greaterOrEqual", ">")}
SUMS = {"+": ("plus", "-"), "-": ("minus", "+")}
OPPOSITES = {"==": "!=", "!=": "=="}
CONDITIONS = {CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.CONDITIONAL_OPERATOR}
BRANCHES = {CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT}
STATEMENTS = {CursorKind.CALL_EXPR, CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR,
              CursorKind.UNARY_OPERATOR, CursorKind.UNEXPOSED_EXPR, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT}
NOTHING = ("{}", "false", "nullptr", "std::nullopt", "0", "FALSE", "G_SOURCE_REMOVE", "")
# These make such values too. A call of reserve changes nothing that can be observed.
MAKES_NOTHING = re.compile(r"std::(string|vector|map|set)(<.*>)?(\(\)|\{\})")
CHANGES_NOTHING = re.compile(r"[\w.>-]+[.>]reserve\(")


class Finder:
  """The sites of one translation unit's main file."""

  def __init__(self, unit, name):
    self.name = name
    self.path = unit.spelling
    with open(self.path, "rb") as file:
      self.text = file.read()
    self.macros = [(cursor.extent.start.offset, cursor.extent.end.offset) for cursor in unit.cursor.get_children()
                   if cursor.kind == CursorKind.MACRO_INSTANTIATION and self._is_here(cursor)]
    self.sites = []
    for cursor in unit.cursor.get_children():
      self._visit(cursor, None, None)

  def _is_here(self, cursor):
    return cursor.location.file is not None and cursor.location.file.name == self.path

  def _slice(self, cursor):
    return self.text[cursor.extent.start.offset:cursor.extent.end.offset].decode()

  def _add(self, cursor, change, frames, operator=None):
    offsets = [offset for frame in frames for offset in (frame.begin, frame.end)] + list(operator or ())
    if any(begin < offset < end for begin, end in self.macros for offset in offsets):
      return
    begin, end = frames[0].begin, frames[0].end
    self.sites.append(Site(self.name, cursor.extent.start.line, begin, end, change, frames, operator))

  def _negate(self, cursor, change):
    self._add(cursor, change, [self._negated(cursor)])

  def _negated(self, cursor):
    return self._frame(cursor, "(Planted::in(NUMBER) != static_cast<bool>(", "))")

  def _frame(self, cursor, before, after):
    return Frame(cursor.extent.start.offset, cursor.extent.end.offset, before, after)

  def _is_constant(self, cursor):
    """Whether a declaration is a compile-time constant, by its tokens before the body or value."""
    for token in cursor.get_tokens():
      if token.spelling in ("constexpr", "consteval", "constinit"):
        return True
      if token.spelling in ("{", "="):
        return False
    return False

  def _visit(self, cursor, parent, function):
    if parent is None and not self._is_here(cursor):
      return
    kind = cursor.kind
    if kind in COMPILE_TIME or (kind in FUNCTIONS | {CursorKind.VAR_DECL} and self._is_constant(cursor)):
      return
    if kind in FUNCTIONS:
      function = cursor
    children = list(cursor.get_children())
    if function is not None:
      self._look_at(cursor, parent, function, children)
    skipped = self._compile_time_children(cursor, children)
    for child in children:
      if child not in skipped:
        self._visit(child, cursor, function)

  def _compile_time_children(self, cursor, children):
    if cursor.kind == CursorKind.CASE_STMT:
      return children[:1]
    if cursor.kind == CursorKind.IF_STMT and self._slice(cursor).startswith("if constexpr"):
      return children[:1]
    if cursor.kind == CursorKind.VAR_DECL and cursor.type.kind == TypeKind.CONSTANTARRAY:
      return [child for child in children if child.kind == CursorKind.INTEGER_LITERAL]
    return []

  def _look_at(self, cursor, parent, function, children):
    kind = cursor.kind
    if kind == CursorKind.BINARY_OPERATOR:
      self._look_at_operator(cursor, children)
    elif kind == CursorKind.CALL_EXPR and len(children) == 3 and cursor.spelling in ("operator==", "operator!="):
      operator = cursor.spelling.removeprefix("operator")
      if self._slice(cursor).count(operator) == 1:
        self._negate(cursor, f"{operator} to {OPPOSITES[operator]}")
    elif kind in CONDITIONS and children:
      self._look_at_condition(cursor, children)
    # Not numbers that a macro names, such as TRUE.
    elif kind == CursorKind.INTEGER_LITERAL and cursor.type.kind in INTEGERS and self._slice(cursor)[:1].isdigit():
      self._add(cursor, f"{self._slice(cursor)} plus 1", [self._frame(cursor, "Planted::offByOne(NUMBER, ", ")")])
    elif kind == CursorKind.RETURN_STMT:
      self._look_at_return(cursor, function, children)
    if kind in STATEMENTS and self._is_statement(cursor, parent) and not CHANGES_NOTHING.match(self._slice(cursor)):
      self._add_statement(cursor, "statement removed", "{ if (!Planted::in(NUMBER)) ")

  def _is_statement(self, cursor, parent):
    """Whether it is a statement of a block, or the only one after a condition or a loop's head."""
    if parent.kind == CursorKind.COMPOUND_STMT:
      return True
    before = self.text[:cursor.extent.start.offset].rstrip()
    return parent.kind in BRANCHES and before.endswith((b")", b"else")) and self._semicolon(cursor) is not None

  def _look_at_operator(self, cursor, children):
    if len(children) != 2:
      return
    left, right = children
    between = self.text[left.extent.end.offset:right.extent.start.offset].decode()
    operator = between.strip()
    if operator in OPPOSITES:
      self._negate(cursor, f"{operator} to {OPPOSITES[operator]}")
    elif operator in ("&&", "||"):
      self._look_at_logic(cursor, left, right, operator)
    elif operator in ORDERS:
      function, change = ORDERS[operator]
      self._replace_operator(cursor, left, right, f"{operator} to {change}", function)
      self._negate(cursor, f"{operator} reversed")
    elif operator in SUMS and all(child.type.get_canonical().kind in INTEGERS for child in children):
      function, change = SUMS[operator]
      self._replace_operator(cursor, left, right, f"{operator} to {change}", function)

  def _look_at_logic(self, cursor, left, right, operator):
    """By De Morgan: with the bug, a && b is !(!a && !b). That is a || b, and it evaluates b in the same cases."""
    self._add(cursor, f"{operator} to {'||' if operator == '&&' else '&&'}",
              [self._negated(part) for part in (cursor, left, right)])

  def _replace_operator(self, cursor, left, right, change, function):
    self._add(cursor, change, [self._frame(cursor, f"Planted::{function}(NUMBER, ", ")")],
              (left.extent.end.offset, right.extent.start.offset))

  def _look_at_condition(self, cursor, children):
    """Only for a condition that is an expression, not for a declaration."""
    condition = children[1] if children[0].kind == CursorKind.DECL_STMT and len(children) > 1 else children[0]
    before = self.text[:condition.extent.start.offset].rstrip()
    after = self.text[condition.extent.end.offset:].lstrip()
    if cursor.kind == CursorKind.CONDITIONAL_OPERATOR:
      is_expression = after.startswith(b"?")
    else:
      is_expression = (condition.kind != CursorKind.VAR_DECL and before.endswith((b"if (", b"while (", b";")) and
                       after.startswith(b")"))
    if is_expression:
      self._negate(condition, "condition negated")

  def _look_at_return(self, cursor, function, children):
    if not children or function.kind == CursorKind.LAMBDA_EXPR:
      return
    value = children[0]
    kind = function.result_type.get_canonical().kind
    if kind == TypeKind.BOOL:
      self._negate(value, "returns the opposite")
    elif not self._is_nothing(value) and kind not in (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE):
      self._add_statement(cursor, "returns an empty value", "{ if (Planted::in(NUMBER)) return {}; ")

  def _is_nothing(self, value):
    text = self._slice(value).strip()
    return text in NOTHING or MAKES_NOTHING.fullmatch(text)

  def _add_statement(self, cursor, change, before):
    end = self._semicolon(cursor)
    if end is not None:
      self._add(cursor, change, [Frame(cursor.extent.start.offset, end, before, " }")])

  def _semicolon(self, cursor):
    """The end of a statement with its semicolon."""
    end = cursor.extent.end.offset
    while end < len(self.text) and self.text[end:end + 1].isspace():
      end += 1
    return end + 1 if self.text[end:end + 1] == b";" else None


def parse(path, arguments, text=None):
  """The translation unit of a file, with `text` as its contents if that is given."""
  return Index.create().parse(
      path, args=arguments, unsaved_files=[(path, text)] if text is not None else None,
      options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)


def _errors(unit):
  return [diagnostic for diagnostic in unit.diagnostics if diagnostic.severity >= diagnostic.Error]


def find(path, name, arguments):
  """The sites of a file, called `name` in reports, in the order of the text. No place has the same change twice."""
  unit = parse(path, arguments)
  errors = _errors(unit)
  if errors:
    raise RuntimeError(f"{name} cannot be parsed: {errors[0].spelling}")
  unique = {(site.begin, site.end, site.change): site for site in Finder(unit, name).sites}
  # A comparison that is a condition or is returned is negated once, as a comparison.
  return sorted((site for site in unique.values() if not _is_repeated(site, unique)), key=lambda site: (site.begin, site.end))


def _is_repeated(site, unique):
  same = [change for begin, end, change in unique if (begin, end) == (site.begin, site.end)]
  return site.change in ("condition negated", "returns the opposite") and any(
      change.endswith("reversed") or change in ("== to !=", "!= to ==") for change in same)


def plant(text, sites):
  """The text with the bugs of the sites, given by number."""
  pieces = []
  for number, site in sites.items():
    for frame in site.frames:
      size = frame.end - frame.begin
      # The order at one offset: ends before beginnings, larger frames outside smaller ones. Of two frames around the same
      # text, the one that replaces the operator is the inner one.
      inner = site.operator is not None
      pieces.append((frame.begin, 2, -size, inner, number, frame.begin, frame.before.replace("NUMBER", str(number))))
      pieces.append((frame.end, 0, size, -inner, -number, frame.end, frame.after))
    if site.operator is not None:
      begin, end = site.operator
      pieces.append((begin, 1, 0, 0, 0, end, ", "))
  result, position = [], 0
  for begin, *_, end, replacement in sorted(pieces):
    result += [text[position:begin], replacement.encode()]
    position = end
  return b"".join(result + [text[position:]])


def compiling(path, arguments, text, sites):
  """The sites, by number, without those whose bugs don't compile because a constant is needed there."""
  while True:
    unit = parse(path, arguments, plant(text, sites))
    errors = _errors(unit)
    lines = {_line_here(diagnostic, path) for diagnostic in errors}
    left = {number: site for number, site in sites.items() if not lines & set(_lines(text, site))}
    if not errors:
      return sites
    if len(left) == len(sites):
      raise RuntimeError(f"{path} does not compile with its bugs: {errors[0].spelling}")
    sites = left


def _line_here(diagnostic, path):
  """The line of an error in the file: planting adds no lines. For a template of Planted.h it is the line that uses it."""
  for location in [diagnostic.location, *(child.location for child in diagnostic.children)]:
    if location.file is not None and location.file.name == path:
      return location.line
  return None


def _lines(text, site):
  first = text.count(b"\n", 0, site.begin) + 1
  return range(first, first + text.count(b"\n", site.begin, site.end) + 1)
