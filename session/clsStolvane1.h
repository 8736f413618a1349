// The session: the one header that a host needs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "session/ReportType.h"
#include "session/clsStolvane1Events.h"
#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "session/data/Variant.h"
#include "session/enmValuationMethod.h"
#include "session/typAliases.h"
#include "session/typCompanyInfoInv.h"

namespace pstolvane1 {

// A session with the books of one company. Connect it, then ask for one report at a time:
//
//   clsStolvane1 session;
//   session.SetConnection("", "", "books.db", False);
//   std::string codes = "2,41";
//   RecordsetPtr ledgers = session.LedgersByCode(3, codes, True);
//
// Reports. With blnReport exactly True an operation returns its finished rowset. With anything else
// it starts to fetch, returns nullptr, and the rowset comes by FetchComplete while the thread
// pumps. Every rowset that is handed out is disconnected or a clone, belongs to the host, and stays
// valid when the session goes. Arguments that are conditions are parts of the query's text, joined
// with And as they stand, so that an Or belongs into brackets; a comment sign is refused; see
// CheckCondition.h. They are lower-cased with it, and "#", "true", "false" and "-1" in them become
// "'", "1", "0" and "1".
//
// Threads. A session belongs to the thread that made it: call it and pump there only. Sessions on
// different threads share nothing. Sessions on one thread share the filters and the arguments of
// the report in hand: a report that one of them asks for while another still fetches goes through,
// and the other's lines are then written with the new arguments. So use one of them at a time.
// Abandon alone may be called from any thread.
//
// Errors. Every failure is an Error. The session stays usable after it. A report before
// SetConnection is error 3709.
class clsStolvane1 : public clsStolvane1Events {
 public:
  clsStolvane1();
  // For a host with an engine of its own: makes the connections that SetConnection opens.
  explicit clsStolvane1(ConnectionMaker make_connection);
  // Ends what runs and closes the connection; no event follows. Error-free.
  ~clsStolvane1();
  clsStolvane1(const clsStolvane1&) = delete;
  clsStolvane1& operator=(const clsStolvane1&) = delete;

  // Opens the books that strConnectionString1 names; strProvider and strConnectionString are
  // accepted and not used. With AsyncConnect exactly True it returns before they are open, and
  // OnConnect tells how it went. Otherwise they are open when it returns, OnConnect has been raised
  // as well, and a failure is error 501 "Unable to Connect to Database", whose Cause() says why;
  // the session then is not connected. Always returns True. dtFromDate and dtToDate are the period
  // of the books. A second call replaces the connection.
  bool SetConnection(std::string_view strProvider, std::string_view strConnectionString,
                     std::string_view strConnectionString1, Boolean AsyncConnect = True,
                     Date dtFromDate = {}, Date dtToDate = {},
                     std::string_view strCurrencyPrefix = "Rupees",
                     std::string_view strCurrencySuffix = "Paise");
  // nullptr before SetConnection.
  [[nodiscard]] std::shared_ptr<Connection> GetConnectionObject() const;
  // The locale of the texts in report rowsets: "en_IN", "de_DE"; "" is the user's own, as it is at
  // first. Money is shown in the locale's currency; "de_DE@currency=INR" names that of the books.
  // Error 3001 for an unknown one.
  void SetLocale(std::string_view name);

  void SetAliases(const typAliases& pAlias);
  // strVouchertypeFilter is a condition on Vouchertype1. btTypeOfentry 1 keeps the documents whose
  // ledger group has the code 2, 1 or 41, 2 keeps the others, and any other value applies
  // strSubgroupFilter, a condition on SubgroupName1. OptNo 1 keeps the regular documents, 2 the
  // optional ones, any other value both. Returns Empty.
  Variant SetFilter(std::string_view strVouchertypeFilter, std::string_view strSubgroupFilter,
                    std::uint8_t btTypeOfentry, std::uint8_t OptNo);

  // True ends a report early, also one that is asked for afterwards: the row in hand and the
  // closing lines are still written, and the rowset is delivered. Stays in force until False is
  // written.
  void CancelFetching(Boolean cancel);
  // Whether the report that came last, as a result or by FetchComplete, went on to its end. False
  // when CancelFetching stopped it behind one of its rows: lines may be missing, and its closing
  // lines are the sums of those that it has. True before the first report.
  [[nodiscard]] bool ReportIsWhole() const;
  // Drops the report in hand: its statements are interrupted, no FetchComplete comes of it, and a
  // call that is at work on it ends with error -2147217900 "the report was abandoned"; so does a
  // sort or an export at work on the session's thread, and, with error 501, a SetConnection that
  // waits. The session takes the next report at once. Nothing when none is in hand. May be called
  // from any thread, as long as the session lives, and inside a handler.
  void Abandon();
  // An asynchronous report still fetches: its FetchComplete is yet to come. Once it is False,
  // nothing more comes from a report that has no FetchComplete.
  [[nodiscard]] bool Fetching() const;
  // Has no effect; kept for hosts that call it. Returns Empty.
  Variant UserPressedCancel();

  // The lines of documents as a plain rowset, by Date: ItemName, ItemPartNo, Desr_id, Item_id,
  // DesrRefno, Prefix, Suffix, Date, Qty (in minus out). strFilter is a condition on Desr1 and
  // DesrDetails1, or "". Always synchronous; raises no event.
  [[nodiscard]] RecordsetPtr POrderTextQuery(std::string_view strFilter);

  // The amounts of one kind of document per ledger, with a total: Ledger, Amount, Ledger_Id,
  // TotalLine, LedgerSort, AmountSort, DummySort. lngVouchertype_id is a voucher type's
  // SubRelatedTo; with blnNoRel set, its key. 5 gives uncleared bank items, 9 amounts received by
  // ledger, 43 job cards by their own date. Amounts are divided by gScale. strBillFilter is a
  // further condition, not used by 5. bytYearno and vhtypeId_NotInc are not used.
  RecordsetPtr Doc_Initial(std::uint8_t bytYearno, std::int32_t lngVouchertype_id, Date dtFromDate,
                           Date dtToDate, Boolean blnReport = True, float gScale = 1,
                           Boolean blnNoRel = False, std::int32_t vhtypeId_NotInc = 0,
                           std::string_view strBillFilter = {});

  // The ledgers of the year and of earlier ones by name: ID, NAME. sCode holds codes of their
  // subgroups with commas between, or "" for all; the call writes the condition made of it back
  // into sCode, so pass a fresh text each time. Subgroups 33 and 34 are never listed.
  RecordsetPtr LedgersByCode(std::uint8_t bytYearno, std::string& sCode, Boolean blnReport);

  // The items with their six prices, a line for each row of the price list: SrNo, ItemName, Price,
  // Price2 to Price6 and their twins. cosiderforsih is a condition on items; without one the
  // database refuses the query. itemstate is one item state; "" and "1,2" are any. bytYearno,
  // dtFromDate, dtToDate and lngPriceList_Id are not used. A Null price is error 94.
  RecordsetPtr MultiplePriceList(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 std::int32_t lngPriceList_Id, std::int32_t lngCategory_Id = -1,
                                 std::int32_t lngClass_Id = -1, Boolean blnReport = True,
                                 std::string_view itemstate = {},
                                 std::string_view cosiderforsih = {});

  // Stock over a period of one year of the books: opening, inwards, outwards and closing with
  // quantity, rate and value, consumption and gross profit, valued by ValuationMethod; see
  // docs/valuation.md. Rows of all years up to bytYearno are read. With blnDetailed an item has a
  // line for each godown and batch as well. blnAltUom fills the alternate unit's columns (error 11
  // where an item's RelationFormula is 0). sngScale divides displayed money, not rates; 0 is error
  // 11. strConsiderForSih is a condition on items, strItemstate item states with commas between.
  // CurrentRate and what is no method return nullptr, and nothing happens. lngAny_Id1, lngAny_Id2,
  // blnOnlyItems and the three show flags are not used here.
  RecordsetPtr StockDetails_Itemwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                     enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                     std::int32_t lngAny_Id2, Boolean blnReport,
                                     Boolean blnDetailed, Boolean blnAltUom, float sngScale,
                                     Boolean blnOnlyItems, Boolean blnShowOpening,
                                     Boolean blnShowInwards, Boolean blnShowOutwards,
                                     std::string_view strConsiderForSih = {},
                                     std::string_view strItemstate = {});
  // The same under the tree of item categories: a line for each group with the sums of its own
  // stock, level by level. lngAny_Id1 is the group whose tree is listed, -1 for all groups; with
  // blnOnlyItems it is listed alone. With blnDetailed or blnOnlyItems the items stand below their
  // group. A tree that runs in a circle is error 3001.
  RecordsetPtr StockDetails_Categorywise(
      std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, enmValuationMethod ValuationMethod,
      std::int32_t lngAny_Id1, std::int32_t lngAny_Id2, Boolean blnReport, Boolean blnDetailed,
      Boolean blnAltUom, float sngScale, Boolean blnOnlyItems, Boolean blnShowOpening,
      Boolean blnShowInwards, Boolean blnShowOutwards, std::string_view strConsiderForSih = {},
      std::string_view strItemstate = {});
  // Under the tree of item classes.
  RecordsetPtr StockDetails_Classwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                      enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                      std::int32_t lngAny_Id2, Boolean blnReport,
                                      Boolean blnDetailed, Boolean blnAltUom, float sngScale,
                                      Boolean blnOnlyItems, Boolean blnShowOpening,
                                      Boolean blnShowInwards, Boolean blnShowOutwards,
                                      std::string_view strConsiderForSih = {},
                                      std::string_view strItemstate = {});
  // Under the tree of godowns. SimpleAvg is AverageRate here.
  RecordsetPtr StockDetails_Godownwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                       enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                       std::int32_t lngAny_Id2, Boolean blnReport,
                                       Boolean blnDetailed, Boolean blnAltUom, float sngScale,
                                       Boolean blnOnlyItems, Boolean blnShowOpening,
                                       Boolean blnShowInwards, Boolean blnShowOutwards,
                                       std::string_view strConsiderForSih = {},
                                       std::string_view strItemstate = {});

  // One item month by month: "Opening Balance", a line for each calendar month of the period, and
  // the period's totals on the last of them. lngAny_Id1 is the item. sngScale divides shown money;
  // 0 is error 11. With blnAltUom quantities are shown in the alternate unit as well; a relation of
  // 0 is error 11. CurrentRate and what is no method return nullptr, and nothing happens. A period
  // that ends in a month before it begins has the opening alone. SetFilter and SetAliases,
  // lngAny_Id2, blnDetailed, blnOnlyItems and the three show flags are not used.
  RecordsetPtr Monthly_Itemwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                std::int32_t lngAny_Id2, Boolean blnReport, Boolean blnDetailed,
                                Boolean blnAltUom, float sngScale, Boolean blnOnlyItems,
                                Boolean blnShowOpening, Boolean blnShowInwards,
                                Boolean blnShowOutwards);
  // The items of a category, class or godown added up. lngAny_Id1 is the group; without
  // blnOnlyItems the groups directly under it count as well, except under FifoRate, LifoRate and
  // SimpleAvg. No units are shown, and no alternate quantities.
  RecordsetPtr Monthly_Categorywise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                    enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                    std::int32_t lngAny_Id2, Boolean blnReport, Boolean blnDetailed,
                                    Boolean blnAltUom, float sngScale, Boolean blnOnlyItems,
                                    Boolean blnShowOpening, Boolean blnShowInwards,
                                    Boolean blnShowOutwards);
  RecordsetPtr Monthly_Classwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                 std::int32_t lngAny_Id2, Boolean blnReport, Boolean blnDetailed,
                                 Boolean blnAltUom, float sngScale, Boolean blnOnlyItems,
                                 Boolean blnShowOpening, Boolean blnShowInwards,
                                 Boolean blnShowOutwards);
  // SimpleAvg is AverageRate here, and in a godown below.
  RecordsetPtr Monthly_Godownwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                  enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                  std::int32_t lngAny_Id2, Boolean blnReport, Boolean blnDetailed,
                                  Boolean blnAltUom, float sngScale, Boolean blnOnlyItems,
                                  Boolean blnShowOpening, Boolean blnShowInwards,
                                  Boolean blnShowOutwards);
  // The item lngAny_Id1 in the godown lngAny_Id2, and with lngBatch_id above 0 that batch alone.
  RecordsetPtr Monthly_GodownItemwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                      enmValuationMethod ValuationMethod, std::int32_t lngAny_Id1,
                                      std::int32_t lngAny_Id2, Boolean blnReport,
                                      Boolean blnDetailed, Boolean blnAltUom, float sngScale,
                                      Boolean blnOnlyItems, Boolean blnShowOpening,
                                      Boolean blnShowInwards, Boolean blnShowOutwards,
                                      std::int32_t lngBatch_id = 0);

  // Goods that were moved and not billed, line by line, inwards and outwards: the free quantity of
  // a line is what was despatched less what was billed, in the line's own unit. lngItem_id and
  // lngLedger_Id choose an item and a party, 0 all. bytOptional chooses documents: 0 regular, 1
  // optional, 2 both; more is 0. blnDetailed adds a line for each movement, with its godown and
  // batch. sngScale divides values; 0 is an error of the query. Cells that cannot be shown stay
  // Null. bytYearno is not used.
  RecordsetPtr FreeQuantity_Itemwise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                     std::int32_t lngItem_id, std::int32_t lngLedger_Id,
                                     Boolean blnUseLongDate = False,
                                     std::string_view strRefSeperator = "/",
                                     std::uint8_t bytOptional = 0, Boolean blnReport = True,
                                     Boolean blnDetailed = False, Boolean blnShowNarration = False,
                                     float sngScale = 1);
  // The same with the two ids the other way round.
  RecordsetPtr FreeQuantity_Partywise(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                      std::int32_t lngLedger_Id, std::int32_t lngItem_id,
                                      Boolean blnUseLongDate = False,
                                      std::string_view strRefSeperator = "/",
                                      std::uint8_t bytOptional = 0, Boolean blnReport = True,
                                      Boolean blnDetailed = False, Boolean blnShowNarration = False,
                                      float sngScale = 1);
  // Actual and free quantities and values summed by item, with a total; with blnDetailed by party
  // below each item. Every line of the period's documents counts, optional or not, with or without
  // free goods. sngScale divides values. bytYearno is not used.
  RecordsetPtr FreeQuantity_Itemwise_Initial(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                             Boolean blnReport = True, Boolean blnDetailed = False,
                                             float sngScale = 1);
  // The same by party, with blnDetailed by item below each party.
  RecordsetPtr FreeQuantity_Partywise_Initial(std::uint8_t bytYearno, Date dtFromDate,
                                              Date dtToDate, Boolean blnReport = True,
                                              Boolean blnDetailed = False, float sngScale = 1);

  // Documents with movements in the period that later documents have not executed in full: orders,
  // deliveries, bills, returns, each kind under its heading. A line's Quantity and PendingQuantity
  // are those of its pending movements, in the main unit; blnDetailed adds a line for each of them,
  // with its godown. lngLedger_Id 0 is all parties. bytYearno, sngScale, bytOptional, blnShowNarr
  // and blnIncludeRelatedVoucherTypes are not used.
  RecordsetPtr PendingByItem(std::uint8_t bytYearno, std::int32_t lngItem_id,
                             std::int32_t lngLedger_Id, Date dtFromDate = {}, Date dtToDate = {},
                             Boolean blnReport = True, float sngScale = 1,
                             std::uint8_t bytOptional = 0, Boolean blnDetailed = False,
                             Boolean LongDate = False, Boolean blnShowNarr = False,
                             std::string_view strRefSep = "/",
                             Boolean blnIncludeRelatedVoucherTypes = True);
  // The same of a party; lngItem_id 0 is all items. Particulars holds the item.
  RecordsetPtr PendingByLedger(std::uint8_t bytYearno, std::int32_t lngLedger_Id,
                               std::int32_t lngItem_id, Date dtFromDate = {}, Date dtToDate = {},
                               Boolean blnReport = True, float sngScale = 1,
                               std::uint8_t bytOptional = 0, Boolean blnDetailed = False,
                               Boolean LongDate = False, Boolean blnShowNarr = False,
                               std::string_view strRefSep = "/",
                               Boolean blnIncludeRelatedVoucherTypes = True);
  // The same of an employee's documents. lngVouchertype_id is a kind of document whose chain is
  // followed, such as 10 for bills that wait for deliveries; any other number follows all.
  RecordsetPtr PendingByEmployee(std::uint8_t bytYearno, std::int32_t lngEmployee_Id,
                                 std::int32_t lngVouchertype_id, Date dtFromDate = {},
                                 Date dtToDate = {}, Boolean blnReport = True, float sngScale = 1,
                                 std::uint8_t bytOptional = 0, Boolean blnDetailed = False,
                                 Boolean LongDate = False, Boolean blnShowNarr = False,
                                 std::string_view strRefSep = "/",
                                 Boolean blnIncludeRelatedVoucherTypes = True);

  // Sale bills of the period by party, each with its items and, with blnDetailed, the receipts
  // against it before it; a total. recitem holds items by Itemnew_id with their itemname; an item
  // that is not there has no name. sngScale divides the bills' and the receipts' amounts. The other
  // arguments are not used.
  RecordsetPtr BillWiseQuery(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                             std::int32_t lngItem_id = 0, std::int32_t lngLedger_Id = 0,
                             Boolean blnUseLongDate = False, std::string_view strRefSeperator = "/",
                             std::uint8_t bytOptional = 0, Boolean blnReport = True,
                             Boolean blnDetailed = False, Boolean blnShowNarration = False,
                             float sngScale = 1, Boolean Detailed = False,
                             Date lastVoucherDate = {}, const RecordsetPtr& recitem = nullptr);
  // Entries of the bill-by-bill accounts of year bytYearno in the period; with blnDetailed each
  // with the items and the receipts of its bill. Ask for it synchronously: in the background it
  // ends in error 3265. sngScale divides the receipts' amounts.
  RecordsetPtr BillWiseQuery1(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                              std::int32_t lngItem_id = 0, std::int32_t lngLedger_Id = 0,
                              Boolean blnUseLongDate = False,
                              std::string_view strRefSeperator = "/", std::uint8_t bytOptional = 0,
                              Boolean blnReport = True, Boolean blnDetailed = False,
                              Boolean blnShowNarration = False, float sngScale = 1,
                              Boolean Detailed = False, Date lastVoucherDate = {},
                              const RecordsetPtr& recitem = nullptr);

  // Vehicles as the front desk looks them up; the columns are in docs/reports.md. No report is
  // written: the query's own rowset comes, always in the background, by FetchComplete. reptype
  // rtAutoSearch searches by buyer if strBuyerFilter is given (a clause on Terms1 with its own
  // Where), else by bill if strBillFilter is (a condition on Desr1), else by what strCriteria says
  // of the vehicle (" And ..." on Batches1 and Godownitem1). rtAutoSearchReceipt lists the sale
  // bills that receipts paid (strCriteria is " And ..." on Voucher1). rtAutoSearchReceiptChild
  // returns the receipts of one bill at once; billbybill_id is the bill's voucher. strVouchertype
  // is a condition on Vouchertype1 and must be given. The pieces go into the query as they stand.
  // bytYearno is the year of PBill_id. Another reptype is error 3001, two purchases of one vehicle
  // are the error of a scalar subquery.
  RecordsetPtr AutoSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                          Date dtToDate, std::string_view strCriteria, Boolean blnReport = True,
                          float sngScale = 1, std::string_view strBuyerFilter = {},
                          std::int32_t billbybill_id = 0, std::string_view strBillFilter = {},
                          std::string_view strVouchertype = {}, std::int32_t lngSubRelatedTo = 0);
  // The search by buyer (rtRtoInsSearch), with the insurance's dates.
  RecordsetPtr RTOInsSearch(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                            Date dtToDate, std::string_view strCriteria, Boolean blnReport = True,
                            float sngScale = 1, std::string_view strBuyerFilter = {},
                            std::int32_t billbybill_id = 0, std::string_view strBillFilter = {},
                            std::string_view strVouchertype = {}, std::int32_t lngSubRelatedTo = 0);
  // AutoSearch among service documents, which have no batch: strCriteria of rtAutoSearch is a
  // clause on Terms1 with its own Where. lngSubRelatedTo 43 shows a job card's own date and number.
  RecordsetPtr AutoSearchServices(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                  Date dtToDate, std::string_view strCriteria,
                                  Boolean blnReport = True, float sngScale = 1,
                                  std::string_view strBillFilter = {},
                                  std::int32_t billbybill_id = 0,
                                  std::string_view strVouchertypeFilter = {},
                                  std::int32_t lngSubRelatedTo = 0);

  // Who bought which vehicle, by buyer, with a total. rsItms are the host's items (Itemnew_id,
  // itemname); without them the first row is error 91. sVouchertype_id holds SubRelatedTo codes
  // with commas between, "" for vehicle sales; SetFilter's voucher types beat it. Amounts are
  // divided by sngScale in the query.
  RecordsetPtr BuyerReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                           Boolean blnReport = True, Boolean blnDetailed = False,
                           float sngScale = 1, std::uint8_t btTypeOfBuyerReport = 0,
                           const RecordsetPtr& rsItms = nullptr,
                           std::string_view sVouchertype_id = {});
  // What the transport office's forms ask of the vehicles sold and not yet filed, as the query's
  // own rowset. Desr_Id is the one document, 0 all of the period.
  Variant RtoSalesDetails(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                          Boolean blnUseLongDate, std::string_view strRefSeperator = "/",
                          std::uint8_t bytOptional = 0, Boolean blnReport = True,
                          Boolean blnDetailed = False, float sngScale = 1,
                          const RecordsetPtr& recitem = nullptr, std::int32_t Desr_Id = 0);
  // Its list to pick from. The database refuses its query: error -2147217900.
  Variant RtoSalesDetails1(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                           Boolean blnUseLongDate, std::string_view strRefSeperator = "/",
                           std::uint8_t bytOptional = 0, Boolean blnReport = True,
                           Boolean blnDetailed = False, float sngScale = 1,
                           const RecordsetPtr& recitem = nullptr);
  // The service bills with tax on their lines: the tax, the taxed labour and the totals; with
  // blnDetailed each line. recitem and recLedger give the names (itemnew_id, itemname; Ledger_id,
  // Ledgername). sngScale divides the rate of tax.
  Variant ServiceTax(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                     std::int32_t lngItem_id = 0, std::int32_t lngLedger_Id = 0,
                     Boolean blnUseLongDate = False, std::string_view strRefSeperator = "/",
                     std::uint8_t bytOptional = 0, Boolean blnReport = True,
                     Boolean blnDetailed = False, Boolean blnShowNarration = False,
                     float sngScale = 1, RecordsetPtr recitem = nullptr,
                     RecordsetPtr recLedger = nullptr);

  // The service bills of every vehicle, by registration number: a heading, its bills, the
  // complaints of each, and with blnDetailed its lines; the column Format tells what a line is.
  // strFilter is a whole clause on Terms1 with its own Where, or ""; it alone chooses the bills,
  // neither the dates nor SetFilter do. rsItm holds Itemnew_id, itemname and UOMNAME of the items
  // (error 91 where lines need it and it is nullptr); lines of other items are left out. sngScale
  // divides the bill's amount. A Null amount, rate or date is error 94.
  RecordsetPtr ServiceReportRegno(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                  Boolean blnReport, Boolean blnDetailed, float sngScale,
                                  std::string_view strFilter, const RecordsetPtr& rsItm);

  // The bills of the six free services, summed by vehicle category, and with blnDetailed by model
  // below it. Cat_id is one category, always in detail; 0 and -1 are all. strItemstate and
  // strConsiderForSih are not used.
  RecordsetPtr FreeServiceReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 Boolean blnReport, Boolean blnDetailed, float sngScale,
                                 std::string_view strItemstate, std::string_view strConsiderForSih,
                                 std::int32_t Cat_id);
  // The free service bills of one model by day, with blnDetailed their lines, and a total. rsItms
  // holds ItemNew_id and itemname of the items; detailed, error 91 without it and 3265 where it
  // lacks them. Dates and document numbers look as in the report before. reptype is the type that
  // an asynchronous report is delivered under, as it comes. OptNo is not used.
  RecordsetPtr FreeServiceReportDaily(ReportType reptype, std::uint8_t bytYearno, Date dtFromDate,
                                      Date dtToDate, Boolean blnReport, Boolean blnDetailed,
                                      float sngScale, std::int32_t Vehicle_id,
                                      const RecordsetPtr& rsItms, std::uint8_t OptNo);

  // What each mechanic billed, and how much of it was labour: lines whose item does not count for
  // stock in hand. With blnDetailed by vehicle model (btTypeOfReport 1) or labour item (any other)
  // below him; by item his own line has his billing once for each item. Mechanic_id is one
  // mechanic, always in detail; 0 is all. The other three arguments are not used.
  RecordsetPtr MechanicLabourReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                    Boolean blnReport, Boolean blnDetailed, float sngScale,
                                    std::string_view strItemstate,
                                    std::string_view strConsiderForSih, std::int32_t Mechanic_id,
                                    std::uint8_t btTypeOfReport,
                                    std::string_view strVouchertypeFilter);
  // The bills behind one line of it, as FreeServiceReportDaily lists them, with their labour.
  // Mechanic_id and Item_id (a model or a labour item) are 0 for all; of one labour item, the
  // labour is that item's. What cannot be shown stays Null. OptNo and strVouchertypeFilter are not
  // used.
  RecordsetPtr MechanicLabourReportDaily(ReportType reptype, std::uint8_t bytYearno,
                                         Date dtFromDate, Date dtToDate, Boolean blnReport,
                                         Boolean blnDetailed, float sngScale,
                                         std::int32_t Mechanic_id, std::int32_t Item_id,
                                         std::uint8_t OptNo, const RecordsetPtr& rsItm,
                                         std::uint8_t btTypeOfReport,
                                         std::string_view strVouchertypeFilter);

  // Vehicle sales by financier, under his pin code where btTypeOfReport is 1, and with blnDetailed
  // by model below him. Hypo_id is one financier, always in detail; 0 is all. Sales without a
  // financier are not listed. strItemstate, strConsiderForSih and strVouchertypeFilter are not
  // used.
  RecordsetPtr HypoReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate, Boolean blnReport,
                          Boolean blnDetailed, float sngScale, std::string_view strItemstate,
                          std::string_view strConsiderForSih, std::int32_t Hypo_id,
                          std::uint8_t btTypeOfReport, std::string_view strVouchertypeFilter);
  // The sales behind a financier, by day. Hypo_id and Item_id (a model) are 0 for all. The amount
  // of the vehicle is that of the first line by the name of its item. What cannot be shown stays
  // Null. OptNo, rsItm, btTypeOfReport and strVouchertypeFilter are not used.
  RecordsetPtr HypoReportDaily(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                               Boolean blnReport, Boolean blnDetailed, float sngScale,
                               std::int32_t Hypo_id, std::int32_t Item_id, std::uint8_t OptNo,
                               const RecordsetPtr& rsItm, std::uint8_t btTypeOfReport,
                               std::string_view strVouchertypeFilter);

  // The warranty lines of the service bills of a period, as a claim form asks for them, with their
  // total. Line and bill must both fall into it, and defect, vendor and performance must have
  // names. recitem holds itemnew_id, ITemPartno and itemname of the items: error 91 where a claim
  // needs it and it is nullptr. sngScale divides the amounts; 0 is error 11. After a report under
  // long dates a claim is error 3265. Arguments without a use here are bytYearno, lngItem_id,
  // lngLedger_Id, blnUseLongDate, bytOptional, blnDetailed and blnShowNarration. Returns the
  // rowset, or Empty when it comes by event.
  Variant ClaimReport(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                      std::int32_t lngItem_id = 0, std::int32_t lngLedger_Id = 0,
                      Boolean blnUseLongDate = False, std::string_view strRefSeperator = "/",
                      std::uint8_t bytOptional = 0, Boolean blnReport = True,
                      Boolean blnDetailed = False, Boolean blnShowNarration = False,
                      float sngScale = 1, const RecordsetPtr& recitem = nullptr);
  // What went out to parties in a period and came back, in a line for each party, item, party
  // group, category, class or area (reptype rtMovement_..., or the type that it stores for it; the
  // call writes that back). With blnDetailed the members of a group stand below it. lngId is the
  // one group, in detail; -1 is all. rtMovement_SalesReturns_ItemRelationAnalysis tells related
  // items as their base item and needs rsItems (Item_id, itemname, ITemDesc, ITemPartno; error 91
  // without). Another reptype has a query that the database refuses. Money is divided by sngScale,
  // 0 is error 11. bytYearno is not used. Blocks until the report is there, also with blnReport
  // False.
  RecordsetPtr CustomerItemwise_Analysis(ReportType& reptype, std::uint8_t bytYearno,
                                         std::int32_t lngId, Date dtFromDate,
                                         const Variant& dtToDate, Boolean blnDetailed,
                                         Boolean blnReport = True, float sngScale = 1,
                                         std::string_view strConsiderForSih = {},
                                         std::string_view strItemstate = {},
                                         const RecordsetPtr& rsItems = nullptr);
  // What came in from parties and went back.
  RecordsetPtr Movement_PurchaseReturns_Analysis(ReportType& reptype, std::uint8_t bytYearno,
                                                 std::int32_t lngId, Date dtFromDate,
                                                 const Variant& dtToDate, Boolean blnDetailed,
                                                 Boolean blnReport = True, float sngScale = 1,
                                                 std::string_view strConsiderForSih = {},
                                                 std::string_view strItemstate = {});
  // The days behind a line of CustomerItemwise_Analysis: of a party by item
  // (rtMovement_LedgerDailyAnalysis), of an item or a party group by party. lngId2 is a second
  // restriction, to an item or a party; 0 is none. DummySort is written as the last analysis of the
  // thread had it. bytYearno and bytOptional are not used.
  RecordsetPtr CustomerItemDaily_Analysis(
      ReportType& reptype, std::uint8_t bytYearno, std::int32_t lngId, std::int32_t lngId2,
      Date dtFromDate, Date dtToDate, Boolean blnReport = True, Boolean LongDate = False,
      float sngScale = 1, std::string_view RefSeperator = "/", std::uint8_t bytOptional = 0,
      std::string_view strConsiderForSih = {}, std::string_view strItemstate = {});
  // Those behind a line of Movement_PurchaseReturns_Analysis.
  RecordsetPtr Movement_PurchaseReturns_DailyAnalysis(
      ReportType& reptype, std::uint8_t bytYearno, std::int32_t lngId, std::int32_t lngId2,
      Date dtFromDate, Date dtToDate, Boolean blnReport = True, Boolean LongDate = False,
      float sngScale = 1, std::string_view RefSeperator = "/", std::uint8_t bytOptional = 0,
      std::string_view strConsiderForSih = {}, std::string_view strItemstate = {});
  // Sales and commission by employee (reptype rtCommission_Initial_Employeewise) or by item
  // (rtCommission_Initial_Itemwise), with blnDetailed in a line for each item, employee and
  // percentage. lngId1 is the one employee, in detail; -1 is all. One item is refused by the
  // database, and so is another reptype. recitem (itemnew_id, itemname) names the items: error 91
  // without it, 3021 for an item that it lacks. Money is divided by sngScale, 0 is error 11.
  // bytYearno is not used.
  RecordsetPtr Commission_Initial(ReportType& reptype, std::uint8_t bytYearno, Date dtFromDate,
                                  Date dtToDate, Boolean blnDetailed, std::int32_t lngId1 = -1,
                                  Boolean blnReport = True, float sngScale = 1,
                                  const RecordsetPtr& recitem = nullptr);
  // The documents behind one employee's commission on one item, job cards among them. bytYearno and
  // bytOpt are not used.
  RecordsetPtr Commission_Daily(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                std::int32_t lngEmployee_Id, std::int32_t lngItem_id,
                                Boolean blnReport = True, float sngScale = 1,
                                Boolean blnLongDate = False, std::uint8_t bytOpt = 0,
                                std::string_view sRefSep = "/");
  // Opening, inwards, outwards and closing quantity by item and colour, of one item or of all
  // (lngItem_id 0). An item has the colours of its batches. blnDetailed is not used.
  RecordsetPtr Colorwise_Initial(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 std::int32_t lngItem_id = 0, Boolean blnReport = True,
                                 Boolean blnDetailed = False, std::string_view strItemstate = {},
                                 std::string_view strConsiderForSih = {});
  // Its lines again from what was fetched last. Error 91 if nothing was, or if it failed; 3265 if
  // it was another report.
  RecordsetPtr mColorwise_Initial();
  // One item and colour month by month, with bare numbers for a chart. lngColor_Id is put into the
  // query as it stands. Error 3021 where the item has no batch of the colour.
  RecordsetPtr Colorwise_Monthly(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                 std::int32_t lngItem_id, std::string_view lngColor_Id,
                                 Boolean blnReport = True);
  // Its lines again. Error 91 unless it was the last report.
  RecordsetPtr mColorwise_Monthly();
  // The vouchers behind its months. bytOpt is not used.
  RecordsetPtr Colorwise_Daily(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                               std::int32_t lngItem_id, std::string_view lngColor_Id,
                               Boolean blnReport = True, std::string_view sRefSep = "/",
                               std::uint8_t bytOpt = 0, Boolean blnLongDate = False);
  // Its lines again. Error 91 or 3265 unless it was the last report, and did not fail.
  RecordsetPtr mColorwise_Daily();
  // Sales (lngVouchertype_id 10) or what came in by another kind of document along the tree of
  // categories, or of classes with blnIsclass: from lngId if that is above 0, otherwise from all
  // that are their own parents. With blnDetailed the items of each stand below it. Money is divided
  // by sngScale, 0 is error 11. Error 3001 where a category lies below itself. bytYearno is not
  // used. Blocks until the report is there, also with blnReport False.
  RecordsetPtr CategoryWise_Initial(Boolean blnIsclass, std::uint8_t bytYearno, Date dtFromDate,
                                    Date dtToDate, std::int32_t lngId,
                                    std::int32_t lngVouchertype_id, Boolean blnReport = True,
                                    Boolean blnDetailed = False, float sngScale = 0,
                                    std::string_view strConsiderForSih = {},
                                    std::string_view strItemstate = {});
  // What came in and went out day by day, of one item or of all (Item_id -1), with a running
  // closing quantity. Ledger_id above 0 is the one party, strVouchertype a condition on
  // Vouchertype1; rows without a date pass both. Cat_id above 0 is the one category, or class with
  // blnIsclass; it and the item conditions act with all items only. sngScale is kept and divides
  // nothing.
  RecordsetPtr ItemWise_DlyBkup(std::uint8_t bytYearno, Date dtFromDate, Date dtToDate,
                                std::int32_t Item_id, std::int32_t Ledger_id,
                                std::string_view strVouchertype, Boolean blnReport = True,
                                float sngScale = 0, std::string_view strConsiderForSih = {},
                                std::string_view strItemstate = {}, std::int32_t Cat_id = -1,
                                Boolean blnIsclass = False);
  // Its lines again from what was fetched last. Error 91 if nothing was, or if it failed; 3265 if
  // it was another report.
  RecordsetPtr mItemwise_DlyBreakup();

 private:
  std::shared_ptr<class ReportFrame> frame_;
};

}  // namespace pstolvane1
