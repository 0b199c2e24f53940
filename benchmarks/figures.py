# SPDX-License-Identifier: MIT
"""The line that a measurement prints, and what is worked out of many values."""


def reporter(benchmark, digits=1):
    """A function that prints one figure of this benchmark in ratio to its floor; void without one of them."""
    def report(figure, value, unit, floor, of, target, digits=digits):
        head = f"{benchmark}.{figure}"
        if value is None or not floor:
            shown = "-" if value is None else round(value, digits)
            print(f"{head} {shown} {unit} ratio=- of={of} target={target:.2f} void", flush=True)
            return
        ratio = value / floor
        word = "ok" if ratio <= target else "short"
        print(f"{head} {value:.{digits}f} {unit} ratio={ratio:.2f} of={of} target={target:.2f} {word}", flush=True)
    return report


def quantile(values, part):
    return sorted(values)[min(len(values) - 1, int(part * len(values)))] if values else None
