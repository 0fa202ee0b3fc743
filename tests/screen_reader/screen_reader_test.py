#!/usr/bin/python3 -B
"""screen_reader_test.py PROGRAM_FOLDER CLOCK SCREENS: the program as somebody uses it who only hears it.

Everything is read and done over AT-SPI, the bus of the assistive programs, on a desktop of the test's own.
PROGRAM_FOLDER is copied, CLOCK is libfaketime, SCREENS the header in which all screens stand by name.
For the program it is 15 January 2020; the expected figures are worked out from the rules of the plan and
stand in the journeys through the screens as well.
"""

import re
import signal
import sys
from pathlib import Path

from desktop import Desktop
from reader import Reader, Role, cells_of, children, text_of

BIRTH = "Date of Birth (MM / DD / YYYY)"
BALANCE = "Current Account Balance in dollars"
LAST_LONGER = "How to make your distribution payments last longer"
PORTFOLIOS = "Sample Investment Allocation Portfolios"


def expect(found, wanted):
    if found != wanted:
        raise AssertionError(f"found    {found}\nexpected {wanted}")


class Walk:
    def __init__(self, reader):
        self.reader = reader
        self.heard = {"mdifrmd"}  # the window around all of them

    def from_the_title_to_the_last_result(self):
        self.menu_and_notes()
        self.periodic_payments()
        self.partial_lump_sum()
        self.lump_sum()

    def hear(self, screen, title, text):
        """Waits for the screen with this title and this text, and takes all of it in."""
        reader = self.reader
        reader.until(lambda: (front := reader.front()) and front.get_name() == title, f'"{title}"')
        reader.find(text)
        reader.until(reader.focus, "the focus")
        expect(reader.faults(), [])
        self.heard.add(screen)

    def hear_result(self, screen, headline):
        self.hear("frmclaim", "Kelvar", "The estimated distribution payment is before any taxes*")
        self.reader.press("OK")
        self.hear(screen, "Distribution Schedule", headline)

    def there_and_back(self, button, screen, title, text, back="OK"):
        before = self.reader.front()
        self.reader.press(button)
        self.hear(screen, title, text)
        self.reader.press(back)
        self.reader.until(lambda: self.reader.front() == before, "the way back")

    # --- In the order of the walk

    def menu_and_notes(self):
        reader = self.reader
        self.hear("frmkelvd", "Kelvar", "For participants of the 457 Plan and the 401(k) Plan")
        reader.press("Next")
        self.hear_menu()
        self.there_and_back("1) When you wish*", "frmtimin", "Please Note...", "Commencement Date:")
        self.there_and_back("2) The type of*", "frmethod", "Please Note...", "Method:")
        self.there_and_back("3) How long you*", "frmlengt", "Please Note...", "Length:")

        reader.press("Payment Duration Chart")
        self.hear("frmvang", LAST_LONGER, "The duration of your distribution payments depends*")
        # 10 % of today's balance, withdrawn at the end of each year, lasts 14 years at 5 %.
        expect("5%: 10% withdrawn each year: 14 years" in self.places_of_chart(), True)
        reader.press("Next")
        self.hear("frmvang1", LAST_LONGER, "From the portion of the table*")
        reader.press("Next")
        self.hear("frmlife", "Please Note...", "* Life Expectancy=age+multiple")
        table = reader.find("Life Expectancy/Minimum Distribution Chart", Role.TABLE)
        expect(cells_of(table, 0), ["AGE: 120", "MULTIPLE: 2", "LIFE EXPECTANCY: 122"])
        reader.press("Previous")
        self.hear("frmvang1", LAST_LONGER, "From the portion of the table*")
        reader.press("Previous")
        self.hear("frmvang", LAST_LONGER, "The duration of your distribution payments depends*")
        reader.press("Previous")
        self.hear_menu()

    def hear_menu(self):
        self.hear("frmdist", "Distribution of Your Deferred Compensation Plan Account", "These are the options*")

    def periodic_payments(self):
        reader = self.reader
        reader.press("Next")
        self.hear("frmdist1", "Commencement Date of Distribution", "Step 1 of 4")
        reader.wait_for_focus(BIRTH)
        reader.key("F1")
        reader.until(lambda: reader.front() and reader.front().get_name() == "Kelvar Help", "the help")
        expect(reader.faults(), [])
        expect(text_of(reader.find("Help page")).splitlines()[0], "Step 1: Commencement date")
        reader.press("Close")
        reader.wait_for_focus(BIRTH)

        reader.type("06151950")
        reader.key("Tab")
        reader.wait_for_focus(BALANCE)
        reader.press("Next")
        message = reader.find("Invalid present value of the account.", Role.DIALOG)
        expect(reader.front(), message)
        expect(reader.faults(), [])
        reader.press("OK")
        reader.wait_for_focus(BALANCE)
        reader.fill(BALANCE, "250000")
        reader.choose("Month", "July")
        reader.choose("Year", "2020")
        reader.find("70")  # the age in July
        reader.press("Next")

        self.hear("frmdist2", "Method of Distribution", "Step 2 of 4")
        reader.tick("Rollover*")
        self.hear("frmderrmsg", "Please Note...", "Rollover funds out of the 457 and 401(k) Plan")
        reader.press("OK")
        self.hear("frmdist2", "Method of Distribution", "A rollover is arranged with the plan*")
        reader.tick("Periodic Payments:")
        reader.tick("Monthly")
        reader.press("Next")

        self.hear("frmdist3", "Length of Payment (Check only one)", "Step 3 of 4")
        reader.tick("Life Expectancy*")
        reader.press("Next")

        self.hear("frmdrate", "Assumed Annual Rate of Return", "Step 4 of 4")
        self.there_and_back("Low Risk/Low*", "frmPortfolios", PORTFOLIOS, "12.5% Equity Index")
        self.there_and_back("All portfolios", "frmdnote", PORTFOLIOS, "* The funds that make up*")
        reader.tick("5%, Low Risk*")
        reader.tick("8%, High Return*")
        reader.press("Next")

        self.hear_result(
            "frmperio",
            "Estimate at 5%, over your minimum distribution years: $734.30 a month from July, 2020, $753.06 from January, 2021, "
            "then a new amount each January; last payment July, 2049, age 99.",
        )
        self.payments_and_years()
        self.comparison()
        self.choices()
        self.chart_of_periodic_payments()
        reader.key("Alt", "w")
        self.hear_menu()

    def payments_and_years(self):
        reader = self.reader
        table = reader.go_to("Schedule of payments", Role.TABLE)
        expect(table.get_n_rows(), 349)
        expect(table.get_description().startswith("Payment 1, July, 2020: $256,270.90 divided by 349 payments"), True)
        reader.type("2021")
        explanation = (
            "Payment 7, January, 2021: $258,300.14 divided by 343 payments (342 to come and this one) equals $753.06. "
            "The $257,547.08 left grows by $1,095.94 in 31 days, less $6.79 fee: $258,636.23."
        )
        reader.until(lambda: table.get_description() == explanation, explanation)
        reader.find(explanation)
        expect(
            cells_of(table, 6),
            [
                "Payment  #: 7",
                "Payments Remaining: 342",
                "Beginning Balance: $258,300.14",
                "Amount: $753.06, changed",
                "Remaining Balance: $257,547.08",
                "Month: January",
                "Year: 2021",
            ],
        )

        reader.tick("Years")
        years = reader.find("Years of the schedule", Role.TABLE)
        expect(years.get_n_rows(), 31)  # the last one is rounding
        values = ("2020", "70", "6", "$256,270.90", "$5,380.85", "$33.53", "$4,405.80", "$257,212.42")
        headings = ("Year", "Age at Last Payment", "Payments", "Beginning Balance", "Earnings", "Fees", "Paid", "Ending Balance")
        expect(cells_of(years, 0), [f"{heading}: {value}" for heading, value in zip(headings, values)])
        reader.find(
            "$250,000.00 today plus $331,157.41 earned minus $2,361.42 fees minus $578,796.05 paid to you "
            "plus $0.06 rounding equals $0.00 left. "
            "Of this, before the first payment: $6,310.79 earned, $39.89 fees."
        )
        expect(reader.faults(), [])

    def comparison(self):
        reader = self.reader
        reader.key("Alt", "m")
        self.hear(
            "frmcompare",
            "Comparison of Rates",
            "If it earned 8% every year instead of 5%, you would be paid $470,471.64 more in all*",
        )
        table = reader.find("The chosen rates side by side", Role.TABLE)
        shown = [cell.split(": ")[1] for cell in cells_of(table, 0)]
        expect(shown[:5], ["5%", "$256,270.90", "$734.30", "$3,090.02", "349"])
        expect(shown[5:], ["7/2049", "99", "$331,157.41", "$2,361.42", "$578,796.05"])
        reader.key("Escape")
        self.hear("frmperio", "Distribution Schedule", "Annual Rate of Return")

    def choices(self):
        reader = self.reader
        reader.key("Alt", "k")
        reader.find("Kept as 1: monthly over *")
        reader.key("Alt", "o")
        self.hear("frmchoices", "Comparison of Choices", "Paid so far")
        table = reader.find("The results kept side by side", Role.TABLE)
        shown = [cell.split(": ", 1)[1] for cell in cells_of(table, 0)]
        expect(shown[1:4], ["5%", "", "$734.30"])
        reader.key("Escape")
        self.hear("frmperio", "Distribution Schedule", "Annual Rate of Return")

    def chart_of_periodic_payments(self):
        reader = self.reader
        reader.press("Chart")
        self.hear("frmcperi", "Distribution Schedule", "Periodic Payments - Monthly (Over Life Expectancy)")
        chart = reader.find("Payments by calendar year", Role.CHART)
        expect(len(self.places_of_chart()), 30)
        reader.wait_for_focus("Payments by calendar year")
        reader.key("Home")
        reader.key("Right")
        second_year = "2021: Total paid $9,036.72"  # 12 times 753.06
        reader.until(lambda: chart.get_description() == second_year, second_year)
        reader.press("Previous")
        self.hear("frmperio", "Distribution Schedule", "Annual Rate of Return")

    def participant(self):
        reader = self.reader
        reader.press("Next")
        reader.wait_for_focus(BIRTH)
        reader.type("06151950")
        reader.fill(BALANCE, "250000")
        reader.choose("Month", "July")
        reader.choose("Year", "2020")
        reader.press("Next")
        self.hear("frmdist2", "Method of Distribution", "Step 2 of 4")

    def partial_lump_sum(self):
        reader = self.reader
        self.participant()
        reader.tick("Amount Certain with Periodic Payments")
        reader.fill("Partial amount certain in dollars", "40000")
        reader.tick("Monthly", nth=1)
        reader.choose("Month", "October")
        reader.press("Next")
        self.hear("frmdist3", "Length of Payment (Check only one)", "Step 3 of 4")
        reader.tick("Life Expectancy*")
        reader.press("Next")
        self.hear("frmdrate", "Assumed Annual Rate of Return", "Step 4 of 4")
        reader.tick("5%, Low Risk*")
        reader.press("Next")
        # 218,993.40 / 349 = 627.49
        self.hear_result(
            "frmparti",
            "Estimate at 5%: $40,000.00 in July, 2020, then over your minimum distribution years: $627.49 a month from October, 2020*",
        )
        reader.find("$256,270.90")
        reader.find("$218,993.40")
        reader.press("Chart")
        self.hear("frmcpart", "Distribution Schedule", "Lump Sum (7/2020):")
        expect(self.places_of_chart()[0], "Lump Sum: Total paid $40,000.00")
        reader.press("Previous")
        self.hear("frmparti", "Distribution Schedule", "Annual Rate of Return")
        reader.key("Alt", "w")
        self.hear_menu()

    def lump_sum(self):
        reader = self.reader
        self.participant()
        reader.tick("Full Lump Sum Payment")
        reader.press("Next")
        self.hear("frmdrate", "Assumed Annual Rate of Return", "Step 3 of 3")
        reader.tick("ALL (Select all rates)")
        reader.press("Next")
        self.hear_result("frmlump", "Estimate at 5%: $256,285.85 at once in July, 2020, age 70.")
        values = [place for place in self.places_of_chart() if "Total Pay Back" in place]
        expect(
            [re.sub(": .* ", ": ", value) for value in values],
            ["5%: $256,285.85", "6%: $257,566.90", "7%: $258,854.30", "8%: $260,148.11"],
        )

    def places_of_chart(self):
        return [place.get_name() for place in children(self.reader.find("*", Role.CHART))]


def main(program_folder, clock, screens):
    there_are = set(re.findall(r"^ +(\w+),? +// ", Path(screens).read_text(), re.MULTILINE))
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    desktop = Desktop(program_folder, "2020-01-15", clock)
    try:
        desktop.open()
        desktop.start_program()
        walk = Walk(Reader(desktop))
        walk.from_the_title_to_the_last_result()
        expect(walk.heard, there_are)
        walk.reader.press("Close")
        expect(desktop.wait_for_program(), 0)
    finally:
        desktop.close()


main(*sys.argv[1:])
