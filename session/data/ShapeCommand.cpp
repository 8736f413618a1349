#include "session/data/ShapeCommand.h"

#include <utility>

#include "session/data/TextFold.h"

namespace pstolvane1::shape {
namespace {

class Printer {
 public:
  std::string Take() { return std::move(text_); }

  void Write(const Command& command) {
    text_ += "SHAPE ";
    Write(command.source);
    if (command.name.Given()) WriteAs(command.name);
    const char* before = " APPEND ";
    for (const auto& item : command.appended) {
      text_ += before;
      before = ", ";
      std::visit([this](const auto& one) { Write(one); }, item);
    }
    if (command.compute) Write(*command.compute);
  }

 private:
  void Write(const Source& source) {
    if (const Query* query = std::get_if<Query>(&source)) {
      text_ += '{' + query->select + '}';
      return;
    }
    text_ += '(';
    Write(*std::get<std::unique_ptr<Command>>(source));
    text_ += ')';
  }

  void Write(const Relation& relation) {
    text_ += '(';
    Write(relation.child);
    const char* before = " RELATE ";
    for (const KeyPair& key : relation.keys) {
      text_ += before;
      before = ", ";
      Write(key.parent);
      text_ += " TO ";
      Write(key.child);
    }
    text_ += ')';
    WriteAs(relation.name);
  }

  void Write(const Aggregate& aggregate) {
    text_ += NameOf(aggregate.function);
    text_ += '(';
    Write(aggregate.chapter);
    if (aggregate.column.Given()) {
      text_ += '.';
      Write(aggregate.column);
    }
    text_ += ')';
    WriteAs(aggregate.name);
  }

  void Write(const Compute& compute) {
    const char* before = " COMPUTE ";
    for (const auto& column : compute.computed) {
      text_ += before;
      before = ", ";
      std::visit([this](const auto& one) { Write(one); }, column);
    }
    before = " BY ";
    for (const Name& name : compute.by) {
      text_ += before;
      before = ", ";
      Write(name);
    }
  }

  void Write(const Compute::Chapter& chapter) {
    Write(chapter.rows);
    if (!SameName(chapter.rows.text, chapter.name.text)) WriteAs(chapter.name);
  }

  void WriteAs(const Name& name) {
    text_ += " AS ";
    Write(name);
  }

  void Write(const Name& name) {
    text_ += '[';
    for (const char c : name.text) {
      text_ += c;
      if (c == ']') text_ += c;
    }
    text_ += ']';
  }

  std::string text_;
};

}  // namespace

bool SameName(std::string_view a, std::string_view b) { return EqualFolded(a, b); }

std::string_view NameOf(Function function) {
  switch (function) {
    case Function::kSum:
      return "SUM";
    case Function::kCount:
      return "COUNT";
    case Function::kMin:
      return "MIN";
    case Function::kMax:
      return "MAX";
    case Function::kAvg:
      return "AVG";
    case Function::kAny:
      break;
  }
  return "ANY";
}

std::string Print(const Command& command) {
  Printer printer;
  printer.Write(command);
  return printer.Take();
}

}  // namespace pstolvane1::shape
