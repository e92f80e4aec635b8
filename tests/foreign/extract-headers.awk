# Writes each block of code that begins with the name of a header, such as "// CDataBase.h", into a header of that name:
# awk -v folder=FOLDER -f this PAGE
/^```/ { header = ""; next }
/^\/\/ [A-Za-z_]+\.h$/ { header = folder "/" $2; print "#pragma once" > header; next }
header != "" { print > header }
