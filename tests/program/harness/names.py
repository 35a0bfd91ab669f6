"""The identifiers of controls, read from the headers beside the forms."""
import functools
import re

from .paths import ROOT

_DEFINE = re.compile(r"^#define\s+(Frm\w+?)_(\w+)\s+(\d+)", re.MULTILINE)


@functools.cache
def control_ids():
    """Form name to (control name to identifier)."""
    forms = {}
    for header in ROOT.glob("*/Frm*.ids.h"):
        for form, control, number in _DEFINE.findall(header.read_text("utf-8")):
            forms.setdefault(form, {})[control] = int(number)
    return forms
