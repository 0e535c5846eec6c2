local a, d, sum = {}, {}, 0
for i = 0, 999999 do a[i] = i end
for i = 0, 999999 do sum = sum + a[i] end
local count = 0
for i = 0, 199999 do d["key" .. i] = i; count = count + 1 end
for i = 0, 199999 do
  if d["key" .. i] ~= nil then sum = sum + d["key" .. i] end
end
print(sum .. " " .. count)
