local s
for round = 1, 20 do
  s = {}
  for i = 1, 20000 do
    s[#s + 1] = "    line number " .. i .. " of the generated text\r\n"
  end
  s = table.concat(s)
end
print(#s)
