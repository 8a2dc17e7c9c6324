"""The names that sheets have in the model: those of the file, unless no table may have them."""
import itertools
import re

LONGEST = 31  # UTF-16 units
BAD = re.compile("[:\\\\/?*\\[\\]\0-\x1f\x7f-\x9f\ufffe\uffff]")


def units(text):
    return len(text.encode("utf-16-le", "surrogatepass")) // 2


def shortened(text, longest):
    while units(text) > longest:
        text = text[:-1]
    return text


def valid_name(text):
    text = BAD.sub("_", shortened(text, LONGEST)) or "_"
    text = "_" + text[1:] if text[0] == "'" else text
    return text[:-1] + "_" if text[-1] == "'" else text


def folded(text):
    return re.sub("[A-Z]+", lambda match: match[0].lower(), text)


def model_names(names):
    """For each name the one in the model; names that come again, in whatever case, get a number."""
    taken, made = set(), []
    for name in map(valid_name, names):
        tries = itertools.chain([name], (
            shortened(name, LONGEST - len(f" ({number})")) + f" ({number})" for number in itertools.count(2)))
        made.append(next(each for each in tries if folded(each) not in taken))
        taken.add(folded(made[-1]))
    return made
