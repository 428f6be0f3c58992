  0 %  opening the session
irvela: read 1 section with 24 rows
721 1.69
