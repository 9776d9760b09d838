# Puts the handbook into its frame: cmake -DBODY=… -DFRAME=… -DPAGE=… -P handbook.cmake
file(READ "${BODY}" body)
file(READ "${FRAME}" frame)
string(REPLACE "@HANDBUCH@" "${body}" page "${frame}")
file(WRITE "${PAGE}" "${page}")
