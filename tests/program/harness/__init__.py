"""Drives the real program as its user does: real clicks and keys, and a look at what it shows."""
