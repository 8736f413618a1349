// The module-level variables of the report in hand. They outlive the call of an operation, because
// on the asynchronous path the row builder runs after it has returned.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "session/FilterClauses.h"
#include "session/data/Date.h"
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
  bool blnAltUom = false;
  std::int32_t lngAny_Id1 = 0;  // the group whose tree is listed
  bool blnOnlyItems = false;    // the named group alone
  enmValuationMethod ValuationMethod{};
  std::string strCurrencyPrefix, strCurrencySuffix;
  DocumentFilter filter;  // SetFilter's values
  mInternationalization international;

  // The report period, as dates and as texts.
  void SetPeriod(Date from, Date to);

  // The calling thread's. A session shares it, so that it outlives the thread's last session.
  [[nodiscard]] static const std::shared_ptr<modStolvane1>& OfThisThread();
};

}  // namespace pstolvane1
