local a, b = 0, 1.5
for i = 1, 10000000 do
  a = (a + i * 3) % 1000003
  b = b * 1.0000001 + 0.5
end
print(a .. " " .. tostring(b > 1))
