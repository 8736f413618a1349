-- every way in which a flag is compared: with the words, with one and nought, with minus one and in a list
select godownitem1.godownitem_id from godownitem1 where isadded = 1 and isopeningbal = 1 and optional = 0 and gdesroptional = 0 and isadded in (0,1) and isaltunit <> 0
