#!/usr/bin/env python3
"""Random histories of receipts, and the tax inside each payment worked out from exact fractions.

Prints the statements that make a history out of empty tables, a line "--", and for each stored row of a receipt
its id, its serial and what it splits into: applied, CGST, SGST, IGST of the amount, then of the discount. Doubles
decide one thing alone: a discount whose share is exactly half a rupee.
"""
import random
import sys
from fractions import Fraction
from math import floor

rng = random.Random(int(sys.argv[1]))
BILLS, RECEIPTS, FIRST_DAY = 1500, 4000, 7


def half_up(share):
    return floor(share + Fraction(1, 2))


def half_even(share, as_double):
    return round(as_double) if share - floor(share) == Fraction(1, 2) else half_up(share)


def make_bill():
    """(taxable value, CGST, SGST, IGST); round sums, so that shares of half a rupee are common."""
    taxable = rng.choice([rng.randint(1, 99), rng.randint(1, 40) * 50, rng.randint(100, 2000) * 10, rng.randint(1, 10**7)])
    kind, tax = rng.random(), half_up(Fraction(taxable * rng.choice([5, 12, 15, 18, 28]), 200))
    if kind < 0.1:
        return (taxable, 0, 0, 0)
    if kind < 0.3:
        return (taxable, 0, 0, 2 * tax)
    return (taxable, tax, max(0, tax + rng.choice([0, 0, 0, 1, -1])), 0)


def make_sum(bill):
    """A part of the bill, seldom all of it; now and then one whose share of the tax is half a rupee exactly."""
    total, tax = sum(bill), max(bill[1:])
    half = Fraction((2 * rng.randint(0, max(tax // 8, 9)) + 1) * total, 2 * tax) if tax else total
    part = total // rng.randint(1, 60)
    return rng.choice([0, total, part, part, rng.randint(1, total) // 9, half if half.denominator in (1, 2, 4) else part,
                       Fraction(rng.randint(1, 40), 2)])


def make_rows(bills):
    """(bill, amount, discount); a bill may stand twice, be gone or be none."""
    rows = []
    for _ in range(rng.randint(1, 4)):
        bill = rng.choice(rows)[0] if rows and rng.random() < 0.2 else rng.choice([*range(1, BILLS + 1), 0, 77777])
        sums = bills.get(bill, (500, 0, 0, 0))
        rows.append((bill, make_sum(sums), make_sum(sums) if rng.random() < 0.3 else 0))
    return [row for row in rows if row[1] or row[2]]


def make_head():
    """(company, day, number): days and numbers meet often, a few receipts have no number."""
    number = 0 if rng.random() < 0.01 else rng.randint(1, 30)
    return (2 if rng.random() < 0.05 else 1, rng.randint(FIRST_DAY, 28), number)


def split_on(bill, events):
    """Of each (kind, sum): the part applied, and the taxes in it. Kind "E" is an earlier receipt's."""
    total, paid, used, parts = sum(bill), 0, [0, 0, 0], []
    for kind, money in events:
        applied, paid, shown = max(0, min(money, total - paid)), paid + money, []
        for at, tax in enumerate(bill[1:]):
            share = Fraction(tax) * applied / total if total else 0
            whole = half_even(share, float(tax) / float(total) * float(applied)) if kind == "D" and total else half_up(share)
            if kind != "E" and used[at] < tax:
                whole = min(whole, tax - used[at])
            used[at] = min(tax, used[at] + whole)
            shown.append(whole if tax else None)
        parts.append([applied, *shown] if applied else [None] * 4)
    return parts


def expected(bills, receipts, on_bill, key):
    _, day, number, rows = receipts[key]
    parts = {}
    for bill in {row[0] for row in rows}:
        def counts(other):
            when = receipts[other][1:3]
            return other != key and (when < (day, number) if number else when[0] <= day)
        def place(other):
            return (*receipts[other][1:3], [row[0] for row in receipts[other][3]].index(bill), other)
        events = [("E", sum(row[at] for row in receipts[other][3] if row[0] == bill))
                  for other in sorted(filter(counts, on_bill.get(bill, [])), key=place) for at in (2, 1)]
        own = [serial for serial, row in enumerate(rows) if row[0] == bill]
        before = len(events)
        for serial in own:
            events += [("D", rows[serial][2]), ("A", rows[serial][1])]
        split = split_on(bills.get(bill, (0, 0, 0, 0)), events)[before:]
        parts.update({serial: split[2 * at + 1] + split[2 * at] for at, serial in enumerate(own)})
    return [parts[serial] for serial in range(len(rows))]


def text(value):
    return "-" if value is None else str(value if value == int(value) else float(value)).removesuffix(".0")


def insert(table, rows):
    for first in range(0, len(rows), 500):
        print(f"Insert Into {table} Values " + ",".join("(" + ",".join(row) + ")" for row in rows[first:first + 500]))


def store(receipts):
    insert("GST_RecpM (RecpSrNo,FirmId,RecpDt,RecpNo)",
           [(str(key), str(firm), f"'2024-05-{day:02}'", str(number)) for key, (firm, day, number, _) in receipts.items()])
    insert("GST_RecpD", [(str(key), str(at + 1), str(bill), text(amount), text(discount), "0")
                         for key, receipt in receipts.items() for at, (bill, amount, discount) in enumerate(receipt[3])])


def main():
    bills = {key: make_bill() for key in range(1, BILLS + 1)}
    insert("GST_BillD (BillId,SrNo,TaxServAmt,CGST,SGST,IGST)",
           [(str(key), "1", *map(str, bill)) for key, bill in bills.items()] + [("3", "2", "0", "0", "0", "NULL")])
    receipts = {key: (*make_head(), make_rows(bills)) for key in range(1, RECEIPTS + 1)}
    store(receipts)
    edited = {key: (*make_head(), make_rows(bills)) for key in rng.sample(sorted(receipts), RECEIPTS // 10)}
    deleted = rng.sample(sorted(receipts), RECEIPTS // 20)
    for key in [*edited, *deleted]:
        print(f"Delete From GST_RecpM Where RecpSrNo={key}")
        if key in edited or key % 5:  # a deletion cut short leaves lines without a receipt
            print(f"Delete From GST_RecpD Where RecpId={key}")
    store({key: receipt for key, receipt in edited.items() if key not in deleted})
    receipts = {key: receipt for key, receipt in (receipts | edited).items() if key not in deleted}
    on_bill = {}
    for key, receipt in receipts.items():
        for bill in {row[0] for row in receipt[3]}:
            on_bill.setdefault(bill, []).append(key)
    print("--")
    for key in receipts:
        for serial, values in enumerate(expected(bills, receipts, on_bill, key)):
            print(key, serial + 1, *map(text, values))


if __name__ == "__main__":
    main()
