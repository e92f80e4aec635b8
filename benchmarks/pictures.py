"""Draws the growth with the number of securities, accounts, plans and instructions."""
import os

import matplotlib

matplotlib.use("svg")
# Makes the output reproducible.
matplotlib.rcParams["svg.hashsalt"] = "growth"
matplotlib.rcParams["svg.fonttype"] = "none"
matplotlib.rcParams["font.family"] = "sans-serif"

from matplotlib import pyplot  # noqa: E402  the backend must be chosen first


def draw(growth, folder):
    """Draws one diagram for each kind of data, with one line for each measured operation."""
    for thing, lines in growth.items():
        figure, axes = pyplot.subplots(figsize=(7, 4))
        for name, points in lines.items():
            axes.plot(list(points.keys()), list(points.values()), marker="o", label=name)
        axes.set_xscale("log")
        axes.set_yscale("log")
        axes.set_xticks(sorted({n for points in lines.values() for n in points}))
        axes.xaxis.set_major_formatter(matplotlib.ticker.FuncFormatter(lambda n, _: f"{n:,.0f}"))
        axes.yaxis.set_major_formatter(matplotlib.ticker.FuncFormatter(lambda ms, _: f"{ms:g}"))
        axes.minorticks_off()
        axes.set_xlabel(thing)
        axes.set_ylabel("milliseconds")
        axes.grid(True, color="#dddddd")
        axes.legend(fontsize="small", loc="best")
        figure.tight_layout()
        figure.savefig(os.path.join(folder, f"growth-{thing}.svg"), metadata={"Date": None})
        pyplot.close(figure)
