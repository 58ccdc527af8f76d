// Layer rx.
