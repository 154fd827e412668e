// Holds nothing: the headers that all window tests include are compiled with it.
