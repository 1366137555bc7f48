// Has the headers of the tests compiled that all of them share.
