#!/usr/bin/env python3
"""The closing value of a stock statement as a script would reckon it: one read, then a walk.

    walk.py BOOKS METHOD YEARNO FROM TO     prints the seconds and the closing value of all keys

A contender of bench_stock. It reckons in floats and knows neither aliases nor filters, units or texts.
"""
import sqlite3
import sys
import time
from collections import defaultdict, namedtuple

PURCHASES, SALES = (7, 14, 0), (10, 15, 0)

Line = namedtuple("Line", "year date id voucher_line quantity rate added opening type")

MOVEMENTS = """
SELECT g.Item_id, g.Godown_id, g.Batch_id, g.YearNo, ifnull(g.Date, ''), g.GodownItem_id,
       ifnull(g.DesrDetails_id, 0), g.Qty, g.Rate, g.IsAdded, g.IsOpeningBal, g.GOriginalVouchertype_id
FROM GodownItem1 g JOIN Items1 USING (Item_id) JOIN Godown1 USING (Godown_id)
WHERE NOT g.Optional AND NOT Items1.Deleted AND NOT Godown1.Deleted AND g.YearNo <= :year
  AND (g.Date <= :to OR g.IsOpeningBal)"""

STANDARDS = """
SELECT Item_id, Rate, SaleOrPurchase, DateFrom, DateTo, YearNo FROM StandardRate1
WHERE DateTo <= :to AND YearNo <= :year ORDER BY DateFrom, DateTo"""

LEDGER = """
SELECT Item_id, OpeningQuantity, OpeningValue, 0, 0, 0
FROM ItemDetailsAsLedger JOIN Items1 USING (Item_id) WHERE YearNo = :year AND NOT Items1.Deleted
UNION ALL
SELECT Item_id, 0, 0, QtyDespIn, QtyDespIn * Price, QtyDespOut
FROM DesrDetails1 JOIN Desr1 USING (Desr_id) JOIN Items1 USING (Item_id)
WHERE AffectStock AND NOT Desr1.Optional AND NOT Desr1.Deleted AND NOT Items1.Deleted
  AND DesrDetDate BETWEEN :from AND :to"""


def signed(line):
    return line.quantity if line.added else -line.quantity


def layer(line):
    return signed(line) if line.added or line.opening else 0


def yearly_average(lines, begin):
    years = defaultdict(lambda: [0, 0, 0])
    for line in lines:
        sums = years[line.year, 1 if line.opening or line.date < begin else 2]
        sums[0] += layer(line)
        sums[1] += layer(line) * line.rate
        sums[2] += line.quantity if not line.added and not line.opening else 0
    left = value = 0
    for year in sorted(years):
        came, amount, went = years[year]
        had = came + left
        left = had - went
        value = abs((value + amount) / had) * left if had else 0
    return value


def layers(lines, method, begin):
    """First in, first out doubles the opening stock in its balance, as the statement does."""
    sold = sum(line.quantity for line in lines if not line.added and line.date)
    left = sum(map(signed, lines))
    if method == "FifoRate":
        left += sum(signed(line) for line in lines if line.opening or line.date < begin)
    ordered = sorted(lines, key=lambda line: (line.year, line.date, line.voucher_line),
                     reverse=method == "LifoRate")
    value = came = amount = 0
    for line in ordered:
        if not line.opening and line.date >= begin:
            came += layer(line)
            amount += layer(line) * line.rate
        if sold > 0:
            sold -= layer(line)
            if sold <= 0:
                value -= sold * line.rate
        else:
            value += layer(line) * line.rate
    if sold and left < 0:
        return yearly_average(lines, begin)
    if sold > 0 and left > 0 and came:
        value += abs(amount / came) * left
    return value


def average(lines, standards, to):
    years = defaultdict(lambda: [0, 0, 0])
    for line in lines:
        sums = years[line.year]
        sums[0] += signed(line)
        sums[1] += layer(line)
        sums[2] += layer(line) * line.rate
    left = None
    for year in sorted(years):
        net, quantity, amount = years[year]
        if left is None:
            left = base = net
            value = abs(round(amount / quantity, 4)) * net if quantity else 0
            costs = [cost[0] for cost in standards if cost[1] <= to and cost[3] <= year]
            if not value and net and not quantity and costs:
                value = net * costs[-1]
            worth = value
            continue
        left, base, worth = left + net, base + quantity, worth + amount
        if base:
            value = abs(worth / base) * left
        base, worth = base - (quantity - net), value
    return value


class Item:
    """The lines of an item in all its keys, and its standard rates."""

    def __init__(self, standards):
        self.lines, self.standards, self.last = [], standards, {}

    def standard(self, price, until):
        found = [rate for rate, sale, _, end, _ in self.standards if sale == price and until(end)]
        return found[-1] if found else None

    def actual(self, wanted, order, types):
        if types not in self.last:
            found = [line for line in self.lines if line.type in types and wanted(line)]
            self.last[types] = max(found, key=order, default=None)
        return self.last[types]


def own_opening(lines):
    found = [line for line in lines if line.opening]
    return max(found, key=lambda line: line.id).rate if found else None


def rate_of(method, item, lines, to):
    by_year = lambda line: (line.year, line.date, line.id)
    by_date = lambda line: (line.date, line.id)
    came = lambda line: line.added or line.opening
    went = lambda line: not line.added
    if method in ("LastPurchaseRate", "LastSaleRate"):
        purchase = method == "LastPurchaseRate"
        types = PURCHASES if purchase else SALES
        wanted = (lambda line: line.date and came(line)) if purchase else (lambda line: line.date and went(line))
        found = item.actual(wanted, by_year, types)
        rate = found.rate if found and not found.opening else own_opening(lines)
        if rate or purchase:
            return rate or item.standard(0, lambda end: end <= to) or 0
        for price in (1, 0):
            rate = item.standard(price, lambda end: end < to)
            if rate is not None:
                return rate
        return 0
    cost = item.standard(0, lambda end: end <= to)
    if method == "standardrate":
        if cost is not None:
            return cost
        found = item.actual(lambda line: line.date and came(line), by_date, PURCHASES)
        return found.rate if found and not found.opening else own_opening(lines) or 0
    price = item.standard(1, lambda end: end <= to)
    if price is not None:
        return price
    found = item.actual(lambda line: line.date and went(line), by_date, SALES)
    rate = found.rate if found and not found.opening else own_opening(lines)
    return next((one for one in (rate, cost) if one is not None), 0)


def main(path, method, year, begin, to):
    books = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    where = {"year": int(year), "from": begin, "to": to}
    if method == "SimpleAvg":
        sums = defaultdict(lambda: [0, 0, 0, 0, 0])
        for item, *cells in books.execute(LEDGER, where):
            for place, cell in enumerate(cells):
                sums[item][place] += cell or 0
        return sum((had + worth) / (left + came) * (left + came - went)
                   for left, had, came, worth, went in sums.values() if left + came)

    standards = defaultdict(list)
    for item, *cells in books.execute(STANDARDS, where):
        standards[item].append(cells)
    keys = defaultdict(list)
    for item, godown, batch, *cells in books.execute(MOVEMENTS, where):
        keys[item, godown, batch].append(Line(*cells))
    if method in ("FifoRate", "LifoRate"):
        return sum(layers(lines, method, begin) for lines in keys.values())
    if method == "AverageRate":
        costs = {item: [(rate, start, end, since) for rate, sale, start, end, since in rows if not sale]
                 for item, rows in standards.items()}
        return sum(average(lines, costs.get(key[0], []), to) for key, lines in keys.items())
    items = {}
    for (item, _, _), lines in keys.items():
        items.setdefault(item, Item(standards[item])).lines.extend(lines)
    return sum(rate_of(method, items[key[0]], lines, to) * sum(map(signed, lines)) for key, lines in keys.items())


started = time.process_time()
closing = main(*sys.argv[1:6])
print(f"{time.process_time() - started:.4f} {closing:.2f}")
