// A header of the host's, which nothing of mirlow may find.
#error "a header of the host was taken for one of mirlow"
