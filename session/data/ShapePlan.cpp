#include "session/data/ShapePlan.h"

#include <algorithm>
#include <utility>

#include "session/data/ColumnNames.h"
#include "session/data/Error.h"
#include "session/data/ShapeParser.h"

namespace pstolvane1::shape {
namespace {

enum class Kind { kNumber, kDate, kText, kOther };

Kind KindOf(DataType type) {
  switch (type) {
    case adInteger:
    case adSingle:
    case adDouble:
    case adCurrency:
    case adBigInt:
    case adBoolean:  // True is -1
      return Kind::kNumber;
    case adDate:
      return Kind::kDate;
    case adBSTR:
    case adVarChar:
      return Kind::kText;
    case adChapter:
    case adEmpty:
      break;
  }
  return Kind::kOther;
}

std::string_view WordsFor(DataType type) {
  if (type == adBoolean) return "a flag";
  switch (KindOf(type)) {
    case Kind::kNumber:
      return "a number";
    case Kind::kDate:
      return "a date";
    case Kind::kText:
      return "a text";
    case Kind::kOther:
      break;
  }
  return "a chapter";
}

// The type of an aggregate of a column, or adEmpty when the column's type has none.
DataType TypeOf(Function function, DataType type) {
  const bool takes_sum = KindOf(type) == Kind::kNumber && type != adBoolean;
  switch (function) {
    case Function::kCount:
      return type == adChapter ? adEmpty : adInteger;
    case Function::kSum:
      if (!takes_sum) return adEmpty;
      if (type == adInteger) return adBigInt;
      return type == adSingle ? adDouble : type;
    case Function::kAvg:
      if (!takes_sum) return adEmpty;
      return type == adCurrency ? type : adDouble;
    case Function::kMin:
    case Function::kMax:
      return takes_sum || KindOf(type) == Kind::kDate || KindOf(type) == Kind::kText ? type
                                                                                     : adEmpty;
    case Function::kAny:
      break;
  }
  return type == adChapter ? adEmpty : type;
}

class Planner {
 public:
  Planner(std::string_view text, const Describe& describe) : text_(text), describe_(describe) {}

  Plan Make(const Command& command, const Name& name) {
    if (command.compute) return MakeGroups(command);
    Plan plan = Make(command.source, command.name.Given() ? command.name : name);
    for (const auto& item : command.appended) {
      if (const Relation* relation = std::get_if<Relation>(&item)) {
        AppendChapter(plan, *relation);
      } else {
        AppendAggregate(plan, std::get<Aggregate>(item));
      }
    }
    return plan;
  }

 private:
  Plan Make(const Source& source, const Name& name) {
    if (const auto* command = std::get_if<std::unique_ptr<Command>>(&source)) {
      return Make(**command, name);
    }
    QueryPlan query;
    query.select = InPlace(text_, std::get<Query>(source));
    query.doing = name.Given() ? "reading the query of " + name.text
                               : "reading the query of the shape command";
    try {
      query.columns = describe_(query.select);
    } catch (const Error& error) {
      throw error.While(query.doing);
    }
    Plan plan;
    plan.columns = query.columns;
    plan.query = std::move(query);
    return plan;
  }

  void AppendChapter(Plan& plan, const Relation& relation) {
    RelationPlan made;
    made.child = std::make_unique<Plan>(Make(relation.child, relation.name));
    for (const KeyPair& key : relation.keys) {
      const int parent = Find(plan, key.parent, "the parent has");
      const int child = Find(*made.child, key.child, "the chapter's query has");
      CheckComparable(key, plan.columns[Index(parent)].type,
                      made.child->columns[Index(child)].type);
      made.parent_keys.push_back(parent);
      made.child_keys.push_back(child);
    }
    made.column = AddColumn(plan, relation.name, {relation.name.text, adChapter});
    plan.relations.push_back(std::move(made));
  }

  void AppendAggregate(Plan& plan, const Aggregate& aggregate) {
    // The parser has seen to it that a chapter of this command has the name.
    const int column = Find(plan, aggregate.chapter, "the parent has");
    const auto relation =
        std::find_if(plan.relations.begin(), plan.relations.end(),
                     [column](const RelationPlan& one) { return one.column == column; });
    relation->aggregates.push_back(MakeAggregate(plan, *relation->child, aggregate));
  }

  Plan MakeGroups(const Command& command) {
    Plan plan;
    GroupPlan groups;
    groups.rows = std::make_unique<Plan>(Make(command.source, command.name));
    const Plan& rows = *groups.rows;
    for (const auto& computed : command.compute->computed) {
      if (const auto* chapter = std::get_if<Compute::Chapter>(&computed)) {
        groups.chapter_columns.push_back(
            AddColumn(plan, chapter->name, {chapter->name.text, adChapter}));
      } else {
        groups.aggregates.push_back(MakeAggregate(plan, rows, std::get<Aggregate>(computed)));
      }
    }
    for (const Name& name : command.compute->by) {
      const int column = Find(rows, name, "the rows have");
      const ColumnInfo& info = rows.columns[Index(column)];
      if (info.type == adChapter)
        Refuse(name, name.text + " is a chapter: it cannot be grouped by");
      groups.by.push_back(column);
      groups.by_columns.push_back(AddColumn(plan, name, info));
    }
    plan.groups = std::move(groups);
    return plan;
  }

  AggregatePlan MakeAggregate(Plan& plan, const Plan& rows, const Aggregate& aggregate) {
    AggregatePlan made;
    made.function = aggregate.function;
    ColumnInfo info{aggregate.name.text, adInteger, 0, adFldIsNullable};
    if (aggregate.column.Given()) {
      const int column = Find(rows, aggregate.column, aggregate.chapter.text + " has");
      const ColumnInfo& of = rows.columns[Index(column)];
      info.type = TypeOf(aggregate.function, of.type);
      if (info.type == of.type) info.defined_size = of.defined_size;
      if (info.type == adEmpty) {
        Refuse(aggregate.column, std::string(NameOf(aggregate.function)) + " does not take " +
                                     std::string(WordsFor(of.type)) + ", as " + of.name + " is");
      }
      made.chapter_column = column;
    }
    made.column = AddColumn(plan, aggregate.name, std::move(info));
    return made;
  }

  int AddColumn(Plan& plan, const Name& name, ColumnInfo info) {
    if (ColumnNames(plan.columns).Find(name.text) >= 0) {
      Refuse(name, "a column " + name.text + " is there already: give another name with AS");
    }
    plan.columns.push_back(std::move(info));
    return static_cast<int>(plan.columns.size() - 1);
  }

  int Find(const Plan& plan, const Name& name, const std::string& whose) {
    const int column = ColumnNames(plan.columns).Find(name.text);
    if (column >= 0) return column;
    std::string why = whose + " no column " + name.text + ", only";
    const char* before = " ";
    for (const ColumnInfo& info : plan.columns) {
      why += before + info.name;
      before = ", ";
    }
    Refuse(name, why);
  }

  void CheckComparable(const KeyPair& key, DataType parent, DataType child) {
    if (KindOf(parent) != Kind::kOther && KindOf(parent) == KindOf(child)) return;
    Refuse(key.parent, key.parent.text + " is " + std::string(WordsFor(parent)) + " and " +
                           key.child.text + " is " + std::string(WordsFor(child)) +
                           ": they cannot be related");
  }

  static std::size_t Index(int column) { return static_cast<std::size_t>(column); }

  [[noreturn]] void Refuse(const Name& at, const std::string& why) const {
    throw Error(ErrorNumber::kQueryRefused, PlaceIn(text_, at.place) + ": " + why);
  }

  std::string_view text_;
  const Describe& describe_;
};

}  // namespace

Plan MakePlan(std::string_view source, const Describe& describe) {
  if (IsCommand(source)) return Planner(source, describe).Make(Parse(source), {});
  Plan plan;
  plan.columns = describe(source);
  plan.query = QueryPlan{std::string(source), {}, plan.columns};
  return plan;
}

}  // namespace pstolvane1::shape
