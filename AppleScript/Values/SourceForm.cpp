#include "AppleScript/Values/SourceForm.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <string_view>

#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/NumberText.h"

namespace AppleScript {

namespace {

constexpr std::size_t shortLength = 200;
constexpr std::string_view ellipsis = "…";

class SourceWriter {
 public:
  explicit SourceWriter(std::size_t longest) : longest_(longest) {}

  void write(const Value& value) { std::visit(*this, value.storage()); }
  std::string finish() &&;

  void operator()(std::monostate) { out_ += "missing value"; }
  void operator()(bool value) { out_ += value ? "true" : "false"; }
  void operator()(std::int64_t value) { out_ += numberText(value); }
  void operator()(double value) { out_ += numberText(value); }
  void operator()(const Text& text) { quote(text.view()); }
  void operator()(const File& file);
  void operator()(const List& list);
  void operator()(const Record& record);
  void operator()(ClassName name) { out_ += name.description->name; }
  void operator()(Constant constant) { out_ += nameOf(constant); }
  void operator()(const ObjectReference& reference);
  void operator()(const ItemReference& reference);

 private:
  [[nodiscard]] bool isFull() const { return out_.size() > longest_; }
  void writeNested(const Value& value);
  void quote(std::string_view text);
  void writeLabel(std::string_view label);
  void writeKey(const Object& object);

  std::size_t longest_;
  std::size_t depth_ = 0;
  std::string out_;
};

std::string SourceWriter::finish() && {
  if (isFull()) {
    std::size_t end = longest_;
    while (end > 0 && UTF8::isContinuation(out_[end]))
      --end;
    out_.resize(end);
    out_ += ellipsis;
  }
  return std::move(out_);
}

void SourceWriter::operator()(const File& file) {
  out_ += "alias ";
  quote(file.path().view());
}

void SourceWriter::operator()(const List& list) {
  out_ += '{';
  for (std::size_t i = 0; i < list.size() && !isFull(); ++i) {
    out_ += i == 0 ? "" : ", ";
    writeNested(list.at(i));
  }
  out_ += '}';
}

void SourceWriter::operator()(const Record& record) {
  out_ += '{';
  for (std::size_t i = 0; i < record.size() && !isFull(); ++i) {
    out_ += i == 0 ? "" : ", ";
    writeLabel(record.label(i));
    out_ += ':';
    writeNested(record.value(i));
  }
  out_ += '}';
}

void SourceWriter::operator()(const ObjectReference& reference) {
  if (reference.object != nullptr) {
    out_ += reference.object->classDescription().name;
    writeKey(*reference.object);
    out_ += reference.application == nullptr ? "" : " of ";
  }
  if (reference.application != nullptr) {
    out_ += "application ";
    quote(reference.application->name());
  }
}

void SourceWriter::operator()(const ItemReference& reference) {
  out_ += "item " + std::to_string(reference.index + 1) + " of ";
  writeNested(reference.list);
}

void SourceWriter::writeNested(const Value& value) {
  if (depth_ == maximumNesting) {
    out_ += ellipsis;
    return;
  }
  ++depth_;
  write(value);
  --depth_;
}

void SourceWriter::quote(std::string_view text) {
  out_ += '"';
  for (const char byte : text) {
    switch (byte) {
      case '\n':
        out_ += "\\n";
        break;
      case '\r':
        out_ += "\\r";
        break;
      case '\t':
        out_ += "\\t";
        break;
      case '"':
      case '\\':
        out_ += '\\';
        [[fallthrough]];
      default:
        out_ += byte;
    }
    if (isFull())
      return;
  }
  out_ += '"';
}

void SourceWriter::writeLabel(std::string_view label) {
  const bool plain = std::all_of(label.begin(), label.end(), [](unsigned char byte) {
    return std::isalnum(byte) != 0 || byte == '_' || byte == ' ';
  });
  const std::string_view bar = plain ? "" : "|";
  out_.append(bar).append(label).append(bar);
}

/// The object's name or, where it has none, its id, to tell it from its like.
void SourceWriter::writeKey(const Object& object) {
  for (const std::string_view key : {"name", "id"}) {
    for (const PropertyDescription& property : object.classDescription().properties) {
      const Result<Value> value = property.name == key ? property.get(object) : Value();
      if (value && (value->is<Text>() || value->is<std::int64_t>())) {
        out_ += key == "id" ? " id " : " ";
        write(*value);
        return;
      }
    }
  }
}

}  // namespace

std::string sourceForm(const Value& value) {
  SourceWriter writer(std::numeric_limits<std::size_t>::max());
  writer.write(value);
  return std::move(writer).finish();
}

std::string shortSourceForm(const Value& value) {
  SourceWriter writer(shortLength);
  writer.write(value);
  return std::move(writer).finish();
}

}  // namespace AppleScript
