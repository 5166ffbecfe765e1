set(public_headers utils/shown.h utils/shown_too.h)
