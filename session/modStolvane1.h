// The module-level variables of the report in hand. They outlive the call of an operation, because
// on the asynchronous path the row builder runs after it has returned.
#pragma once

#include <any>
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "session/FilterClauses.h"
#include "session/data/Date.h"
#include "session/data/Error.h"
#include "session/enmValuationMethod.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {

// An operation writes those that it takes as arguments before it composes its query. Once per
// thread, shared by the sessions on it: the one that asks last overwrites what the others asked
// for.
struct modStolvane1 {
  bool blnConnected = false;
  std::string strSavedConnection;
  std::string strSQL, strSQL2, strSQL3, strSQL4, strSQL5;  // normalised
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;                   // the report period
  std::string strFromDateText, strToDateText;  // the same as SqlDateText
  std::string strRefSeperator;                 // inside a document number
  bool blnUseLongDate = false;
  float sngScale = 0;  // divides displayed money
  bool blnShowNarration = false;
  bool blnDetailed = false;
  Date dtBooksFrom, dtBooksTo;      // the period of the open books
  std::int32_t lngRecordNo = 0;     // running line number
  std::uint8_t bytFetchesDone = 0;  // source rowsets that have completed their fetch
  bool blnShowOpening = false, blnShowInwards = false, blnShowOutwards = false;
  enmValuationMethod ValuationMethod{};
  std::string strCurrencyPrefix, strCurrencySuffix;
  DocumentFilter filter;  // SetFilter's values
  mInternationalization international;

  // Takes over the arguments of the report in hand: a struct of its family, for the row builder
  // that runs after the call. Those that have a variable above are written into it as well.
  template <typename Arguments>
  void Keep(const Arguments& arguments);
  // What was kept; a builder takes it before it yields. Error 91 where the report in hand is of
  // another kind.
  template <typename Arguments>
  [[nodiscard]] Arguments Kept() const;

  // The report period, as dates and as texts.
  void SetPeriod(Date from, Date to);
  [[nodiscard]] std::array<std::string*, 5> QueryTexts() {
    return {&strSQL, &strSQL2, &strSQL3, &strSQL4, &strSQL5};
  }

  // The calling thread's. A session shares it, so that it outlives the thread's last session.
  [[nodiscard]] static const std::shared_ptr<modStolvane1>& OfThisThread();

 private:
  std::any arguments_;
};

template <typename Arguments>
void modStolvane1::Keep(const Arguments& arguments) {
  if constexpr (requires { arguments.bytYearno; }) bytYearno = arguments.bytYearno;
  if constexpr (requires { arguments.dtFromDate; }) {
    SetPeriod(arguments.dtFromDate, arguments.dtToDate);
  }
  if constexpr (requires { arguments.strRefSeperator; }) {
    strRefSeperator = arguments.strRefSeperator;
  }
  if constexpr (requires { arguments.blnUseLongDate; }) {
    blnUseLongDate = arguments.blnUseLongDate;
  }
  if constexpr (requires { arguments.sngScale; }) sngScale = arguments.sngScale;
  if constexpr (requires { arguments.blnShowNarration; }) {
    blnShowNarration = arguments.blnShowNarration;
  }
  if constexpr (requires { arguments.blnDetailed; }) blnDetailed = arguments.blnDetailed;
  if constexpr (requires { arguments.ValuationMethod; }) {
    ValuationMethod = arguments.ValuationMethod;
  }
  arguments_ = arguments;
}

template <typename Arguments>
Arguments modStolvane1::Kept() const {
  if (const auto* kept = std::any_cast<Arguments>(&arguments_)) return *kept;
  throw Error(ErrorNumber::kObjectNotSet,
              "the arguments of this report are gone: another report was asked for on its thread");
}

}  // namespace pstolvane1
