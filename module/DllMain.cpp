/// Registration of the library as an extension module. There is no other start-up or shut-down work.
