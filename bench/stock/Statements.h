// The stock statements that the benchmarks ask for, and the SELECTs that they send.
#pragma once

#include <string>
#include <vector>

#include "Contenders.h"
#include "session/clsStolvane1.h"
#include "session/data/ShapePlan.h"
#include "session/engine/Engines.h"
#include "session/modStolvane1.h"

namespace pstolvane1::bench {

struct Method {
  const char* name;
  enmValuationMethod method;
};
inline constexpr Method kMethods[] = {
    {"FifoRate", FifoRate},           {"LifoRate", LifoRate},
    {"AverageRate", AverageRate},     {"LastPurchaseRate", LastPurchaseRate},
    {"LastSaleRate", LastSaleRate},   {"standardrate", standardrate},
    {"StandardPrice", StandardPrice}, {"SimpleAvg", SimpleAvg},
};

inline RecordsetPtr Statement(clsStolvane1& session, enmValuationMethod method,
                              Boolean blnReport = True) {
  return session.StockDetails_Itemwise(kYear, *Date::FromIso(kFrom), *Date::FromIso(kTo), method,
                                       -1, 0, blnReport, True, False, 1, False, True, True, True);
}

inline void CollectSelects(const shape::Plan& plan, std::vector<std::string>& selects) {
  if (plan.query) selects.push_back(plan.query->select);
  if (plan.groups) CollectSelects(*plan.groups->rows, selects);
  for (const shape::RelationPlan& relation : plan.relations) {
    CollectSelects(*relation.child, selects);
  }
}

// The engine's texts of all SELECTs that a method's statement sends.
inline std::vector<std::string> SelectsOf(clsStolvane1& session, Provider& books,
                                          enmValuationMethod method) {
  modStolvane1& module = *modStolvane1::OfThisThread();
  std::string* const texts[] = {&module.strSQL, &module.strSQL2, &module.strSQL3, &module.strSQL4};
  for (std::string* text : texts) text->clear();
  (void)Statement(session, method);
  std::vector<std::string> selects;
  for (const std::string* text : texts) {
    if (text->empty()) continue;
    CollectSelects(
        shape::MakePlan(*text, [&](std::string_view select) { return books.Describe(select); }),
        selects);
  }
  for (std::string& select : selects) select = books.Translate(select);
  return selects;
}

}  // namespace pstolvane1::bench
